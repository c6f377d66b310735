// A file or folder that is to be read, opened without risk: nothing that would wait or act when it
// is opened (a pipe, a device, a socket) is.
//
// Paths are bytes. One thread at a time.

#pragma once

#include <cstddef>
#include <string>

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Result.h"

namespace host {

/// An open file or folder.
class InputFile {
public:
    /// Opens what is at `path`. A Fault's detail is the system's text, or "not a regular file".
    [[nodiscard]] static platform::Result<InputFile> open(std::string path);

    [[nodiscard]] bool isFolder() const { return isFolder_; }

    /// The path as it was given.
    [[nodiscard]] const std::string& path() const { return path_; }

    /// A path of this file that is UTF-8 throughout: the given one, or where that is no text the
    /// file's descriptor, good only in this process and as long as this object lives.
    [[nodiscard]] const std::string& pathAsText() const { return pathAsText_; }

    /// Returns up to `size` bytes from the file's beginning, fewer when reading fails.
    [[nodiscard]] std::string firstBytes(std::size_t size) const;

    /// Returns the last bytes of the file, up to `size`, fewer when reading fails.
    [[nodiscard]] std::string lastBytes(std::size_t size) const;

private:
    InputFile(std::string path, platform::FileDescriptor descriptor, bool isFolder);

    std::string path_;
    platform::FileDescriptor descriptor_;
    bool isFolder_;
    std::string pathAsText_;
};

}  // namespace host
