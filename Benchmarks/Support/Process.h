// Runs a program as a whole process and tells what it cost.
//
// Any thread at once.

#pragma once

#include <string>
#include <vector>

namespace bench {

/// What a process has printed, and the processor time that it and its own children took.
struct ProcessRun {
    int status = 0;  ///< as wait() tells it
    double seconds = 0;
    std::string output;
};

/// Runs a program by its path with these arguments; errors go where ours go.
[[nodiscard]] ProcessRun runProcess(const std::vector<std::string>& command);

}  // namespace bench
