// Reads the command line.
//
// Paths are bytes. One thread.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Host/TextJob.h"

namespace host {

/// What the program is to do.
enum class Command { Text, Types };

/// The commands' options; the job's importer is empty unless it was named.
struct Request {
    Command command = Command::Text;
    bool json = false;
    TextJob job;
};

/// A request or, without one, what to print and the status to end with.
struct CommandLine {
    std::optional<Request> request;
    std::string output;  ///< for the standard output
    std::string error;   ///< for the standard error, a line
    int status = 0;

    /// Reads the arguments as main gets them.
    [[nodiscard]] static CommandLine read(int argc, const char* const* argv);
};

}  // namespace host
