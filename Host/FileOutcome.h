// What has come of one file.
//
// Plain record; one thread at a time.

#pragma once

#include <chrono>
#include <string>

namespace host {

/// The text of a file, or why there is none.
struct FileOutcome {
    /// The path as it was given; bytes.
    std::string path;
    /// The identifier of the content type, UTF-8; empty when it was not found out.
    std::string type;
    std::chrono::nanoseconds duration{0};
    bool ok = false;
    /// UTF-8, when ok.
    std::string text;
    /// For people, one line, when not ok. It may quote bytes that are not UTF-8.
    std::string error;
};

}  // namespace host
