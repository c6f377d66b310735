// pvdoc pack: a document of the own format, with its text, from any file that is imported.
//
// In plain text, marks are obeyed.

#pragma once

#include <cstdint>
#include <string>

#include "Platform/Foundation/Result.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

/// How a document is to be made.
struct PackOptions {
    std::string source;
    std::string target;
    /// The lowest generation of readers that shall open it; for testing what readers refuse.
    std::int64_t compatibilityVersion = 0;
    bool isStored = false;  ///< members are not deflated
    Overwrite overwrite = Overwrite::No;
};

/// Makes the document and writes it to its place in one step. A Fault names the file and what is
/// wrong; nothing is changed then.
platform::Outcome pack(const PackOptions& options);

}  // namespace pvdoc
