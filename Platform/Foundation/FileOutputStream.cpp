#include "Platform/Foundation/FileOutputStream.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "Platform/Foundation/Failure.h"

namespace platform {

void FileOutputStream::open() {
    if (!beginOpening()) {
        return;
    }
    const int placing = append_ == FileAppending::Yes ? O_APPEND : O_TRUNC;
    file_ = FileDescriptor::open(path_, O_WRONLY | O_CREAT | placing, 0666);
    if (!file_.isOpen()) {
        const FailureContext context(path_);
        fail(errno);
        return;
    }
    setStatus(StreamStatus::Open);
}

void FileOutputStream::close() {
    file_.close();
    endByClosing();
}

std::int64_t FileOutputStream::write(std::span<const std::byte> bytes) {
    if (streamStatus() != StreamStatus::Open) {
        return -1;
    }
    setStatus(StreamStatus::Writing);
    const std::int64_t count = file_.writeFully(bytes);
    if (count < 0) {
        const FailureContext context(path_);
        fail(errno);
        return count;
    }
    setStatus(count == 0 ? StreamStatus::AtEnd : StreamStatus::Open);
    return count;
}

std::optional<std::int64_t> FileOutputStream::currentFileOffset() const {
    if (!file_.isOpen() || append_ == FileAppending::Yes) {
        return std::nullopt;
    }
    const off_t offset = ::lseek(file_.number(), 0, SEEK_CUR);
    return offset < 0 ? std::nullopt : std::optional<std::int64_t>(offset);
}

}  // namespace platform
