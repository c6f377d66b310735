// UTF-16 units from bytes and back, strictly.
//
// Works in two passes, counting first, so that the result is allocated once at its exact size. Nothing
// here allocates. Any thread.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Platform/CoreFoundation/CFString.h"

namespace platform::cf {

/// Tells whether all of the text is ASCII.
[[nodiscard]] bool isAscii(std::string_view text) noexcept;
[[nodiscard]] bool isAscii(std::u16string_view text) noexcept;

/// Returns how many units the UTF-8 text has, nothing when a byte of it is invalid.
[[nodiscard]] std::optional<std::size_t> unitsOfUtf8(std::string_view utf8) noexcept;

/// Writes the units of `utf8` to `units`, which has room for unitsOfUtf8 of them.
///
/// Requires: the text is valid.
void decodeUtf8(std::string_view utf8, char16_t* units) noexcept;

/// One encoded character: up to four bytes and the number of units it stands for.
struct EncodedCharacter {
    std::uint8_t bytes[4];
    std::uint8_t byteCount;
    std::uint8_t unitCount;
};

/// The encodings as functions that encode the character at the start of `units` (not empty); nothing
/// when it cannot be written.
using CharacterEncoder = std::optional<EncodedCharacter> (*)(std::u16string_view units);

/// Returns the encoder of `encoding`, null when it is unknown.
[[nodiscard]] CharacterEncoder encoderOf(CFStringEncoding encoding) noexcept;

/// Returns how many bytes a unit takes at most, 0 when the encoding is unknown.
[[nodiscard]] std::size_t maxBytesPerUnit(CFStringEncoding encoding) noexcept;

/// Tells whether the encoding writes an ASCII character as one byte, itself.
[[nodiscard]] bool extendsAscii(CFStringEncoding encoding) noexcept;

}  // namespace platform::cf
