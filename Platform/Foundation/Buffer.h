// Owned, writable bytes that start out as zeros.
//
// The memory comes from calloc, so a large buffer costs only the pages that are written. That is
// what makes it safe to honour a size that a hostile file merely declares.
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>

namespace platform {

/// A block of writable bytes with one owner; `Data::adopt` turns it into immutable shared bytes.
class Buffer {
public:
    /// Returns `size` zero bytes. Throws std::bad_alloc when they cannot be had.
    [[nodiscard]] static Buffer zeroed(std::size_t size);

    [[nodiscard]] std::byte* bytes() { return bytes_.get(); }
    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] std::span<std::byte> span() { return {bytes_.get(), size_}; }

    /// Drops all bytes from `size` on.
    ///
    /// Requires: size is at most size().
    void truncate(std::size_t size);

private:
    friend class Data;

    struct Release {
        void operator()(std::byte* bytes) const { std::free(bytes); }
    };

    Buffer(std::byte* bytes, std::size_t size) : bytes_(bytes), size_(size) {}

    std::unique_ptr<std::byte, Release> bytes_;
    std::size_t size_;
};

}  // namespace platform
