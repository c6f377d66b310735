#include "Platform/Foundation/DataInputStream.h"

#include <algorithm>

namespace platform {

void DataInputStream::open() {
    if (beginOpening()) {
        setStatus(StreamStatus::Open);
    }
}

void DataInputStream::close() {
    endByClosing();
}

std::int64_t DataInputStream::read(std::span<std::byte> buffer) {
    if (const auto answer = answerWithoutReading(buffer.size())) {
        return *answer;
    }
    const auto rest = data_.span().subspan(position_);
    const std::size_t count = std::min(rest.size(), buffer.size());
    std::copy_n(rest.begin(), count, buffer.begin());
    position_ += count;
    if (position_ == data_.size()) {
        setStatus(StreamStatus::AtEnd);
    }
    return static_cast<std::int64_t>(count);
}

bool DataInputStream::hasBytesAvailable() const {
    return InputStream::hasBytesAvailable() && position_ < data_.size();
}

}  // namespace platform
