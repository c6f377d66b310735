#include "Platform/Foundation/Buffer.h"

#include <algorithm>
#include <cassert>
#include <new>

namespace platform {

Buffer Buffer::zeroed(std::size_t size) {
    // One byte at least, so that the address of an empty buffer is not null.
    void* const bytes = std::calloc(std::max<std::size_t>(size, 1), 1);
    if (bytes == nullptr) {
        throw std::bad_alloc();
    }
    return Buffer(static_cast<std::byte*>(bytes), size);
}

void Buffer::truncate(std::size_t size) {
    assert(size <= size_);
    size_ = size;
}

}  // namespace platform
