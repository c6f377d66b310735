// The eight-bit characters of the system on which the old text format of property lists was made.
//
// Pure function; any thread at once.

#pragma once

#include <cstdint>

namespace platform {

/// Returns the UTF-16 unit of the character with number `code`: ASCII below 0x80, above it letters
/// and signs in an order of their own, and U+FFFD for the two numbers that have none.
[[nodiscard]] char16_t characterFromNextStep(std::uint8_t code) noexcept;

}  // namespace platform
