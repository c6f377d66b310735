// Writes a file of the disk.
//
// One thread at a time.

#pragma once

#include <string>

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/OutputStream.h"

namespace platform {

/// An output stream into a file.
class FileOutputStream : public OutputStream {
public:
    /// Selector: initToFileAtPath:append:
    FileOutputStream(std::string path, FileAppending append)
        : path_(std::move(path)), append_(append) {}

    void open() override;
    void close() override;
    [[nodiscard]] std::int64_t write(std::span<const std::byte> bytes) override;
    [[nodiscard]] std::optional<std::int64_t> currentFileOffset() const override;

private:
    std::string path_;
    FileAppending append_;
    FileDescriptor file_;
};

}  // namespace platform
