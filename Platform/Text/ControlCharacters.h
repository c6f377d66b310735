// Which control characters a text may well have, and which only stray into one.
//
// Pure functions; any thread at once.

#pragma once

namespace platform {

/// Whether `unit` is a control character that no text needs: below U+0020 and none of U+0007 to
/// U+000F (white space, bell, backspace, shifts), U+001A (the end of old files) and U+001B
/// (escape).
[[nodiscard]] constexpr bool isStrayControl(char16_t unit) {
    const bool isFirst = unit < 0x07;
    const bool isSecond = unit >= 0x10 && unit < 0x20;
    const bool isKnown = unit == 0x1A || unit == 0x1B;
    // Without branches: this is asked of every unit of a text.
    return (isFirst | (isSecond & !isKnown)) != 0;
}

}  // namespace platform
