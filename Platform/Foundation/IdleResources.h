// What is kept for its next use although nobody uses it now: one place to let go of all of it.
//
// Any thread.

#pragma once

namespace platform {

/// Frees what one keeper keeps idle; what is in use stays.
using ReleaseIdle = void (*)();

/// Has `release` called by each releaseIdleResources from now on.
///
/// Requires: at most 16 keepers in a program or plug-in; the function stays where it is.
void addIdleResources(ReleaseIdle release);

/// Frees all that is kept idle, as when the last user of the system has gone. It is made again when
/// it is needed again.
void releaseIdleResources();

}  // namespace platform
