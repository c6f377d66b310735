// Text in bytes whose encoding has units of more than one byte: UTF-16 and UTF-32.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The width of the units and the order of their bytes.
enum class WideEncoding : std::uint8_t {
    Utf16BigEndian,
    Utf16LittleEndian,
    Utf32BigEndian,
    Utf32LittleEndian,
};

/// An encoding that a byte-order mark tells, and how many bytes the mark has.
struct WideMark {
    WideEncoding encoding;
    std::size_t size;
};

/// Returns what the byte-order mark at the start of `bytes` tells; nothing when there is none.
[[nodiscard]] std::optional<WideMark> wideMarkOf(std::string_view bytes);

/// Returns the text of `bytes` in `encoding`; a mark is a character like others.
///
/// What is no character in UTF-32 becomes U+FFFD, and so does a part of a unit at the end; lone
/// surrogates of UTF-16 are kept.
[[nodiscard]] std::u16string utf16FromWideBytes(std::string_view bytes, WideEncoding encoding);

/// Returns the text of bytes that begin with a byte-order mark of UTF-16 or UTF-32, without the
/// mark; nothing for others.
[[nodiscard]] std::optional<std::u16string> utf16FromMarkedBytes(std::string_view bytes);

/// Returns the text of big-endian UTF-16. Part of a unit at the end becomes U+FFFD.
[[nodiscard]] std::u16string utf16FromBigEndianUtf16(std::string_view bytes);

}  // namespace platform
