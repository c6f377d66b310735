#include "Platform/Foundation/FileInputStream.h"

#include <fcntl.h>

#include <cerrno>

#include "Platform/Foundation/Failure.h"

namespace platform {

void FileInputStream::open() {
    if (!beginOpening()) {
        return;
    }
    // Opening a pipe would wait for its other end, were it not for O_NONBLOCK.
    file_ = FileDescriptor::open(path_, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (!file_.isOpen()) {
        const FailureContext context(path_);
        fail(errno);
        return;
    }
    setStatus(StreamStatus::Open);
}

void FileInputStream::close() {
    file_.close();
    endByClosing();
}

std::int64_t FileInputStream::read(std::span<std::byte> buffer) {
    if (const auto answer = answerWithoutReading(buffer.size())) {
        return *answer;
    }
    setStatus(StreamStatus::Reading);
    const std::int64_t count = file_.readFully(buffer);
    if (count < 0) {
        const FailureContext context(path_);
        fail(errno);
        return count;
    }
    setStatus(count == 0 ? StreamStatus::AtEnd : StreamStatus::Open);
    return count;
}

}  // namespace platform
