// A stretch of text or bytes: a location and a length.
//
// Text counts UTF-16 code units, data counts bytes. The end is exclusive.
// Plain immutable values; any thread.

#pragma once

#include <algorithm>
#include <cstdint>

namespace platform {

/// The location that searches answer when they find nothing (the largest signed 64-bit value).
inline constexpr std::uint64_t kNotFound = 0x7FFFFFFFFFFFFFFF;

/// A location and a length; `end()` is the first position after it.
struct Range {
    std::uint64_t location = 0;
    std::uint64_t length = 0;

    [[nodiscard]] constexpr std::uint64_t end() const { return location + length; }

    /// Whether the whole range lies in something `size` units long; never overflows.
    [[nodiscard]] constexpr bool liesWithin(std::uint64_t size) const {
        return location <= size && length <= size - location;
    }

    friend constexpr bool operator==(const Range&, const Range&) = default;
};

/// Returns what two ranges share; {0, 0} when they share nothing.
///
/// Requires: neither end overflows 64 bits.
[[nodiscard]] constexpr Range intersectionRange(const Range& first, const Range& second) {
    const std::uint64_t location = std::max(first.location, second.location);
    const std::uint64_t end = std::min(first.end(), second.end());
    return location < end ? Range{location, end - location} : Range{};
}

}  // namespace platform
