// Ownership of a file descriptor.
//
// One thread at a time.

#pragma once

#include <unistd.h>

#include <utility>

namespace host {

/// Closes the descriptor that it holds, if any, at the end of its life.
class FileDescriptor {
public:
    FileDescriptor() = default;
    /// Takes over what open has returned, -1 included.
    explicit FileDescriptor(int number) : number_(number) {}
    ~FileDescriptor() { close(); }
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        close();
        number_ = std::exchange(other.number_, -1);
        return *this;
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    [[nodiscard]] int get() const { return number_; }
    [[nodiscard]] int release() { return std::exchange(number_, -1); }
    explicit operator bool() const { return number_ >= 0; }

    void close() {
        if (number_ >= 0) {
            ::close(std::exchange(number_, -1));
        }
    }

private:
    int number_ = -1;
};

}  // namespace host
