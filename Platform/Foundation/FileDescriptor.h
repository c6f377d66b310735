// An open file of the operating system, closed with its owner.
//
// Operations answer -1 and leave errno as the system calls do; interrupted calls are taken up
// again. One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

namespace platform {

/// Owns a file descriptor, or none.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int number) : number_(number) {}
    ~FileDescriptor() { close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept;

    /// Opens `path` with the flags and creation mode of open(2); programs that are started don't
    /// inherit it. None, with errno, when that fails; a path that holds a NUL is EINVAL.
    [[nodiscard]] static FileDescriptor open(const std::string& path, int flags, unsigned mode = 0);

    /// The same, with a relative path counted from `folder`.
    [[nodiscard]] static FileDescriptor openAt(const FileDescriptor& folder,
                                               const std::string& path, int flags,
                                               unsigned mode = 0);

    [[nodiscard]] bool isOpen() const { return number_ >= 0; }
    [[nodiscard]] int number() const { return number_; }

    /// Gives the descriptor away.
    [[nodiscard]] int release() { return std::exchange(number_, -1); }
    void close();

    /// Fills `buffer` until it is full, the file ends, or an error; returns the count. -1 when an
    /// error came before the first byte.
    [[nodiscard]] std::int64_t readFully(std::span<std::byte> buffer) const;

    /// Writes all of `bytes` unless an error intervenes; returns the count. -1 when an error came
    /// before the first byte.
    [[nodiscard]] std::int64_t writeFully(std::span<const std::byte> bytes) const;

private:
    int number_ = -1;
};

}  // namespace platform
