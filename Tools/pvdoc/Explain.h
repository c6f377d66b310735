// pvdoc explain: each decision on the way from a file's bytes to its text.

#pragma once

#include <string>

#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// What a report says, and whether the file gives a text in the end.
struct Explanation {
    std::string report;
    bool isRead = false;
};

/// Explains the file at `path`; a Fault when it cannot be looked at.
platform::Result<Explanation> explain(const std::string& path);

}  // namespace pvdoc
