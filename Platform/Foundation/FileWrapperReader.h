// Reads a tree of files into wrappers.
//
// One thread at a time.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/FileWrapperContents.h"

namespace platform {

/// Reads files, folders and links as they are; links are never followed.
class FileWrapperReader {
public:
    using Contents = FileWrapperContents;

    /// The first failure leaves its error at `error`.
    FileWrapperReader(ErrorLocation error, FileReading reading)
        : error_(error), reading_(reading) {}

    /// Returns what is at `path`, with everything below it; nothing when any of it cannot be read.
    /// A path that is itself a file's is read at once.
    [[nodiscard]] std::optional<Contents> read(const std::string& path);

private:
    [[nodiscard]] std::optional<Contents> readItem(const FileDescriptor& folder,
                                                   const std::string& name);
    [[nodiscard]] std::optional<Contents> readFile(const FileDescriptor& folder,
                                                   const std::string& name);
    [[nodiscard]] std::optional<Contents> readLink(const FileDescriptor& folder,
                                                   const std::string& name);
    [[nodiscard]] std::optional<Contents> readFolder(const FileDescriptor& folder,
                                                     const std::string& name);
    [[nodiscard]] std::optional<FileWrapperEntry> readChild(const FileDescriptor& folder,
                                                            const std::string& name);
    [[nodiscard]] std::optional<std::vector<std::string>> namesInFolder(
        const FileDescriptor& folder);
    std::nullopt_t refuse(int errnoValue);
    std::nullopt_t refuse(std::string_view reason);

    ErrorLocation error_;
    FileReading reading_;
    // The item that is being read, for errors.
    std::string path_;
    int depth_ = 0;
};

}  // namespace platform
