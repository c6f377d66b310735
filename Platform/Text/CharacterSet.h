// The platform's sets of characters.
//
// Pure functions; any thread at once.

#pragma once

#include <string_view>

namespace platform {

/// Whether a unit is in whitespaceAndNewlineCharacterSet: the separators of Unicode, the controls
/// from tab to carriage return, the next-line control and the zero-width space. None of them takes
/// two units.
[[nodiscard]] constexpr bool isWhitespaceOrNewline(char16_t unit) {
    if (unit < 0x80) {
        return unit == u' ' || (unit >= 0x09 && unit <= 0x0D);
    }
    return unit == 0x85 || unit == 0xA0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200B) ||
           unit == 0x2028 || unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

/// Whether a code point is in letterCharacterSet: a letter or a mark, as Unicode has them.
[[nodiscard]] bool isLetter(char32_t codePoint);

/// Whether a code point is a letter and no mark.
[[nodiscard]] bool isBaseLetter(char32_t codePoint);

/// Returns `string` without the white space and newlines at both of its ends. It points into
/// `string`; where nothing is left, to its start.
[[nodiscard]] std::u16string_view stringByTrimmingWhitespaceAndNewlines(std::u16string_view string);

}  // namespace platform
