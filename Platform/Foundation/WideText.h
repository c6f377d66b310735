// Text in bytes whose encoding has units of more than one byte: UTF-16 and UTF-32.
//
// Pure functions; any thread at once.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Returns the text of bytes that begin with a byte-order mark of UTF-16 or UTF-32, without the
/// mark; nothing for others.
///
/// What is no character in UTF-32 becomes U+FFFD, and so does a part of a unit at the end.
[[nodiscard]] std::optional<std::u16string> utf16FromMarkedBytes(std::string_view bytes);

/// Returns the text of big-endian UTF-16. Part of a unit at the end becomes U+FFFD.
[[nodiscard]] std::u16string utf16FromBigEndianUtf16(std::string_view bytes);

}  // namespace platform
