// UTF-16 units as bytes in the encodings that strings are asked for, character by character.
//
// Nothing here allocates. Any thread.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Platform/CoreFoundation/CFString.h"

namespace platform::cf {

/// One encoded character: up to four bytes and the number of units it stands for.
struct EncodedCharacter {
    std::uint8_t bytes[4];
    std::uint8_t byteCount;
    std::uint8_t unitCount;
};

/// The encodings as functions that encode the character at the start of `units` (not empty);
/// nothing when it cannot be written.
using CharacterEncoder = std::optional<EncodedCharacter> (*)(std::u16string_view units);

/// Returns the encoder of `encoding`, null when it is unknown.
[[nodiscard]] CharacterEncoder encoderOf(CFStringEncoding encoding) noexcept;

/// Returns how many bytes a unit takes at most, 0 when the encoding is unknown.
[[nodiscard]] std::size_t maxBytesPerUnit(CFStringEncoding encoding) noexcept;

/// Tells whether the encoding writes an ASCII character as one byte, itself.
[[nodiscard]] bool extendsAscii(CFStringEncoding encoding) noexcept;

}  // namespace platform::cf
