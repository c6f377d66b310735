// The type that a file is read as.

#pragma once

#include <string>

#include "Platform/Foundation/Data.h"

namespace pvdoc {

/// A type and, for a person, what it was told by.
struct FileType {
    std::string identifier;
    std::string reason;
};

/// Returns the type that the name of the file at `path` says, else the one that its bytes look
/// like.
[[nodiscard]] FileType typeOfFile(const std::string& path, const platform::Data& contents);

}  // namespace pvdoc
