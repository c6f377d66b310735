// Conversions between UTF-8 and UTF-16.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What stands in for a unit that no character has.
inline constexpr char16_t kReplacementCharacter = 0xFFFD;

/// Returns `text` as UTF-16, or nothing when it is not valid UTF-8 (truncated or overlong forms,
/// encoded surrogates and values above U+10FFFF are not).
[[nodiscard]] std::optional<std::u16string> utf16FromUtf8(std::string_view text);

/// Returns `text` as UTF-16 with U+FFFD for each byte that belongs to no valid form.
[[nodiscard]] std::u16string utf16FromUtf8Lossy(std::string_view text);

/// Returns `text` as UTF-8 with U+FFFD for each lone surrogate.
[[nodiscard]] std::string utf8FromUtf16(std::u16string_view text);

/// Returns the number of bytes of the form that `text` begins with; 0 when it is not valid UTF-8,
/// or empty.
[[nodiscard]] std::size_t utf8FormLength(std::string_view text) noexcept;

/// Appends to `text` the UTF-8 form of one code point. Requires: it is no surrogate and at most
/// U+10FFFF.
void appendUtf8(std::string& text, char32_t codePoint);

/// Returns the units of `ascii` as UTF-16. Requires: every byte is below 0x80.
[[nodiscard]] std::u16string utf16FromAscii(std::string_view ascii);

/// Whether every byte is below 0x80.
[[nodiscard]] bool isAscii(std::string_view bytes);

[[nodiscard]] constexpr bool isHighSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
[[nodiscard]] constexpr bool isLowSurrogate(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

}  // namespace platform
