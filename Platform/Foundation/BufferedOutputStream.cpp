#include "Platform/Foundation/BufferedOutputStream.h"

namespace platform {
namespace {

constexpr std::size_t kRoom = std::size_t{64} * 1024;

}  // namespace

void BufferedOutputStream::close() {
    (void)flush();
    target_->close();
}

std::int64_t BufferedOutputStream::write(std::span<const std::byte> bytes) {
    if (bytes.size() >= kRoom || bytes.empty()) {
        return flush() ? target_->write(bytes) : -1;
    }
    if (gathered_.size() + bytes.size() > kRoom && !flush()) {
        return -1;
    }
    if (streamStatus() != StreamStatus::Open) {
        return -1;
    }
    gathered_.reserve(kRoom);
    gathered_.insert(gathered_.end(), bytes.begin(), bytes.end());
    return static_cast<std::int64_t>(bytes.size());
}

std::optional<std::int64_t> BufferedOutputStream::currentFileOffset() const {
    const auto offset = target_->currentFileOffset();
    return offset ? std::optional(*offset + static_cast<std::int64_t>(gathered_.size())) : offset;
}

bool BufferedOutputStream::flush() {
    if (gathered_.empty()) {
        return true;
    }
    const auto size = static_cast<std::int64_t>(gathered_.size());
    const bool isTaken = target_->write(gathered_) == size;
    gathered_.clear();
    return isTaken;
}

}  // namespace platform
