// Text in UTF-16 or UTF-32 without a byte-order mark, where that is evident.
//
// Only the first bytes, kWideSample of them, are looked at. Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "Platform/Foundation/WideText.h"

namespace platform {

inline constexpr std::size_t kWideSample = 8192;

/// Returns the wide encoding that `bytes` are evidently in; nothing when they may be text in an
/// encoding of bytes, or no text.
///
/// Text in UTF-16 is evident when all of these hold for one order of the bytes:
/// - The bytes are not UTF-8 with hardly a control character in it, NULs at the end aside.
/// - One unit in 50 has an upper byte that no text in an encoding of bytes has: a NUL as Latin
///   letters, blanks and line ends have it, or another control character, as Greek has it. Rare
///   Latin letters don't count: small numbers of two bytes look like them.
/// - At most one unit in 20 makes no sense: control characters, lone surrogates, what is no
///   character, private or rare ones, and a letter of one script beside one of another.
///   Latin text with NULs between its words, read as UTF-16, is a mixture of Chinese and Latin.
/// When they hold for both, the order with fewer units that make no sense is the right one.
///
/// UTF-32 is evident when all units are characters and at most one in 20 makes no sense.
[[nodiscard]] std::optional<WideEncoding> evidentWideEncoding(std::string_view bytes);

}  // namespace platform
