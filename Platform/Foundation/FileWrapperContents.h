// What is found at a path when a tree of files is read.

#pragma once

#include <string>
#include <variant>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/FileWrapperChildren.h"

namespace platform {

/// The place of a file that has not been read yet.
struct UnreadFile {
    std::string path;
};

/// Where a symbolic link leads, as it is written.
struct LinkDestination {
    std::string path;
};

/// A file's bytes or place, a folder's children, or a link.
using FileWrapperContents =
    std::variant<Data, UnreadFile, std::vector<FileWrapperEntry>, LinkDestination>;

}  // namespace platform
