// What the text command is to do.
//
// Plain record.

#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "Host/Output.h"

namespace host {

/// The bounds of one worker.
struct Limits {
    /// For each file; 0 is no bound.
    std::chrono::microseconds time{0};
    /// MiB of address space over what the program begins with; 0 is no bound.
    std::size_t memory = 0;
    /// MiB of temporary files, and of any one file that foreign code writes; 0 is no bound.
    std::size_t disk = 0;
};

/// The files, and how to read and write them.
struct TextJob {
    std::string importer;  ///< the bundle's path
    std::vector<std::string> files;
    std::optional<std::string> type;  ///< of all files; else each one's own
    OutputForm form = OutputForm::Text;
    Limits limits;
};

}  // namespace host
