#include "Platform/Foundation/MemoryOutputStream.h"

#include <utility>

namespace platform {

void MemoryOutputStream::open() {
    if (beginOpening()) {
        setStatus(StreamStatus::Open);
    }
}

void MemoryOutputStream::close() {
    endByClosing();
}

std::int64_t MemoryOutputStream::write(std::span<const std::byte> bytes) {
    if (streamStatus() != StreamStatus::Open) {
        return -1;
    }
    if (bytes.empty()) {
        setStatus(StreamStatus::AtEnd);
        return 0;
    }
    // The bytes may be part of what was handed out, which therefore lives until the end.
    const Data before = std::exchange(handedOut_, Data());
    if (!before.empty()) {
        written_.assign(before.span().begin(), before.span().end());
    }
    written_.insert(written_.end(), bytes.begin(), bytes.end());
    return static_cast<std::int64_t>(bytes.size());
}

std::optional<Data> MemoryOutputStream::dataWritten() const {
    if (!written_.empty()) {
        handedOut_ = Data::adopt(std::exchange(written_, {}));
    }
    return handedOut_;
}

}  // namespace platform
