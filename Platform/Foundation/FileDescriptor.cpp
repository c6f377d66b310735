#include "Platform/Foundation/FileDescriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace platform {
namespace {

// Moves bytes with `call`, which is given an offset and a count. The system moves at most 2 GiB a
// call anyway.
template <class Call>
std::int64_t moveFully(std::size_t size, Call call) {
    constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;
    std::size_t moved = 0;
    while (moved < size) {
        const ssize_t count = call(moved, std::min(size - moved, kMostAtOnce));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0 && moved == 0) {
            return -1;
        }
        if (count <= 0) {
            break;
        }
        moved += static_cast<std::size_t>(count);
    }
    return static_cast<std::int64_t>(moved);
}

}  // namespace

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
}

FileDescriptor FileDescriptor::open(const std::string& path, int flags, unsigned mode) {
    return openAt(FileDescriptor(), path, flags, mode);
}

FileDescriptor FileDescriptor::openAt(const FileDescriptor& folder, const std::string& path,
                                      int flags, unsigned mode) {
    // The system would stop reading at the NUL and open another file.
    if (path.find('\0') != std::string::npos) {
        errno = EINVAL;
        return {};
    }
    const int from = folder.isOpen() ? folder.number() : AT_FDCWD;
    int number = -1;
    do {
        number = ::openat(from, path.c_str(), flags | O_CLOEXEC, mode);
    } while (number < 0 && errno == EINTR);
    return FileDescriptor(number);
}

void FileDescriptor::close() {
    if (isOpen()) {
        ::close(release());
    }
}

std::int64_t FileDescriptor::readFully(std::span<std::byte> buffer) const {
    return moveFully(buffer.size(), [&](std::size_t at, std::size_t count) {
        return ::read(number_, buffer.data() + at, count);
    });
}

std::int64_t FileDescriptor::writeFully(std::span<const std::byte> bytes) const {
    return moveFully(bytes.size(), [&](std::size_t at, std::size_t count) {
        return ::write(number_, bytes.data() + at, count);
    });
}

}  // namespace platform
