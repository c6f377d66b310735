// Waits for the end of a child and for the signals that are to end this process.
//
// Process-wide: one at a time, in a process with one thread.

#pragma once

#include <signal.h>
#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <optional>

namespace host {

/// Which bound this process has killed a child for.
enum class Overrun { None, Time, Disk };

/// How a child has ended.
struct ChildEnd {
    int status = 0;              ///< as wait gives it
    std::size_t memoryPeak = 0;  ///< the most resident memory that it ever had, in bytes
    Overrun overrun = Overrun::None;
};

/// While it lives, signals that would end the process (but those that were ignored before) wait
/// until they are asked for, and writing to a closed pipe is answered instead of deadly.
class SignalWatch {
public:
    SignalWatch();
    ~SignalWatch();
    SignalWatch(const SignalWatch&) = delete;
    SignalWatch& operator=(const SignalWatch&) = delete;

    /// Waits until `child` has ended, or until a signal is there that is to end this process;
    /// `signal` tells which, and is 0 otherwise. A signal goes before the child's end.
    ///
    /// Comes back without either after `longest`, and earlier when the child only stops or goes on.
    [[nodiscard]] std::optional<ChildEnd> waitFor(pid_t child, std::chrono::nanoseconds longest,
                                                  int& signal) const;

    /// Kills `child` and waits for its end.
    static ChildEnd kill(pid_t child);

private:
    sigset_t watched_;
    sigset_t maskBefore_;
    struct sigaction childBefore_;
    struct sigaction pipeBefore_;
};

/// Ends the process by `signal`, with its usual effect.
[[noreturn]] void dieOf(int signal);

}  // namespace host
