// Which control characters a text may well have, and which only stray into one.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>

namespace platform {

/// Whether `unit` is a control character that no text needs: below U+0020 and none of U+0007 to
/// U+000F (white space, bell, backspace, shifts), U+001A (the end of old files) and U+001B
/// (escape).
[[nodiscard]] constexpr bool isStrayControl(char16_t unit) {
    constexpr std::uint32_t kStrays = ~(0xFF80U | 1U << 0x1A | 1U << 0x1B);
    return unit < 0x20 && (kStrays >> unit & 1U) != 0;
}

}  // namespace platform
