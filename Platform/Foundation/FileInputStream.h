// Reads a file of the disk.
//
// One thread at a time.

#pragma once

#include <string>

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/InputStream.h"

namespace platform {

/// An input stream over a file. It is at its end once a read gave no byte, not with the last one.
///
/// Nothing waits for another program: a pipe that no one has opened for writing is at its end, and
/// one that has no byte yet is an error.
class FileInputStream : public InputStream {
public:
    /// Selector: initWithFileAtPath:
    explicit FileInputStream(std::string path) : path_(std::move(path)) {}

    void open() override;
    void close() override;
    [[nodiscard]] std::int64_t read(std::span<std::byte> buffer) override;

private:
    std::string path_;
    FileDescriptor file_;
};

}  // namespace platform
