#include "Platform/Foundation/FileContents.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "Platform/Foundation/Buffer.h"

namespace platform {
namespace {

Buffer enlarged(Buffer buffer) {
    constexpr std::size_t kLeast = 4096;
    Buffer larger = Buffer::zeroed(std::max(buffer.size() * 2, kLeast));
    std::memcpy(larger.bytes(), buffer.bytes(), buffer.size());
    return larger;
}

}  // namespace

std::optional<Data> contentsOfFile(const FileDescriptor& file, std::size_t expectedSize) {
    // One byte more, so that the first read also meets the end.
    Buffer buffer = Buffer::zeroed(expectedSize + 1);
    std::size_t size = 0;
    while (true) {
        const std::int64_t count = file.readFully(buffer.span().subspan(size));
        if (count < 0) {
            return std::nullopt;
        }
        size += static_cast<std::size_t>(count);
        // A short count may also come from an error after the first byte, so only 0 is the end.
        if (count == 0) {
            break;
        }
        if (size == buffer.size()) {
            buffer = enlarged(std::move(buffer));
        }
    }
    // A file that shrank, or a guess that was far off, must not hold on to the memory.
    if (size < buffer.size() / 2) {
        return Data::copyOf(buffer.span().first(size));
    }
    buffer.truncate(size);
    return Data::adopt(std::move(buffer));
}

}  // namespace platform
