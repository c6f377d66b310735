// What a process has to arrange for before it runs foreign code.
//
// Process-wide: to be called in a process of its own, just forked.

#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <chrono>
#include <cstddef>

#include "Host/TextJob.h"

namespace host {

/// Makes the process end with `watcher`, the process that forked it; ends it at once when the
/// watcher has gone already.
void endWith(pid_t watcher);

/// Lets all signals in. The deadline's and the one for too large a file have their usual effect,
/// that of a broken pipe none: it is an answer of the write. All others stay as the program was
/// started with.
void resetSignals();

/// Bounds the address space to what there is and `mebibytes` more; 0 is no bound. Turns core files
/// off. Sanitizers reserve more than any bound, so under them there is none.
void boundMemory(std::size_t mebibytes);

/// The bounds of foreign code that are not to hold for this program's own: its output may take its
/// time and become as large as it will.
class ForeignBounds {
public:
    /// Reads what bounds the process has already. Nothing is bounded yet.
    explicit ForeignBounds(const Limits& limits);

    /// From now on, SIGALRM kills the process when the time is over, SIGXFSZ when it makes a file
    /// too large.
    void impose() const;
    void lift() const;

private:
    std::chrono::microseconds time_;
    rlimit ownFileSize_;
    rlimit foreignFileSize_;
};

/// Ends the process at once, running nothing that its code has left to run at the exit.
[[noreturn]] void endProcess(int status);

}  // namespace host
