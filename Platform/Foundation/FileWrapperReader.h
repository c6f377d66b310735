// Reads a tree of files into wrappers.
//
// One thread at a time.

#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileWrapperChildren.h"

namespace platform {

/// Reads files, folders and links as they are; links are never followed.
class FileWrapperReader {
public:
    /// What a wrapper holds: bytes, children, or the destination of a link.
    using Contents = std::variant<Data, std::vector<FileWrapperEntry>, std::string>;

    /// The first failure leaves its error at `error`.
    explicit FileWrapperReader(ErrorLocation error) : error_(error) {}

    /// Returns what is at `path`, with everything below it; nothing when any of it cannot be read.
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
    // The item that is being read, for errors.
    std::string path_;
    int depth_ = 0;
};

}  // namespace platform
