// Says for a person how a worker has come to its end.
//
// Pure functions; any thread.

#pragma once

#include <string>

#include "Host/SignalWatch.h"
#include "Host/TextJob.h"

namespace host {

/// Returns what a worker did that ended within foreign code, such as "took longer than 60 s" or
/// "the importer crashed (segmentation fault)".
///
/// A worker that was killed with its memory all but used up died of that.
[[nodiscard]] std::string describeEnd(const ChildEnd& end, const Limits& limits);

}  // namespace host
