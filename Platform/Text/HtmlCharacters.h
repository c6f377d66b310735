// Characters of a page's text, from UTF-8 to UTF-16.
//
// Pure functions; any thread at once. Requires throughout: the UTF-8 is sound.

#pragma once

#include <string_view>

namespace platform {

/// Whether a byte is a blank that a browser folds.
[[nodiscard]] constexpr bool isHtmlBlank(char byte) {
    return byte == ' ' || byte == '\n' || byte == '\t' || byte == '\r' || byte == '\f';
}

/// The first unit of a text; any one when it is empty.
[[nodiscard]] char16_t firstUnitOf(std::string_view utf8);

/// Writes characters to `unit` and returns the place behind them. There must be room for as many
/// units as there are bytes.
char16_t* writeCharacters(std::string_view utf8, char16_t* unit);

/// The same up to a blank that is more than one between two words of ASCII; takes what is written
/// off the text.
char16_t* writeWords(std::string_view& utf8, char16_t* unit);

}  // namespace platform
