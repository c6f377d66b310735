// What a process has to arrange for before it runs foreign code.
//
// Process-wide: to be called in a process of its own, just forked.

#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>

namespace host {

/// Makes the process end with `watcher`, the process that forked it; ends it at once when the
/// watcher has gone already.
void endWith(pid_t watcher);

/// Lets all signals in. The deadline's has its usual effect, that of a broken pipe none: it is an
/// answer of the write. All others stay as the program was started with.
void resetSignals();

/// Bounds the address space to what there is and `mebibytes` more; 0 is no bound. Turns core files
/// off. Sanitizers reserve more than any bound, so under them there is none.
void boundMemory(std::size_t mebibytes);

/// Kills the process by SIGALRM unless disarmed in time; 0 is never.
void armDeadline(std::chrono::microseconds time);
void disarmDeadline();

/// Ends the process at once, running nothing that its code has left to run at the exit.
[[noreturn]] void endProcess(int status);

}  // namespace host
