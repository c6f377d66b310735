// Encodings of one byte for each character that older systems called code pages.
//
// Numbers are those of Windows, where those of the Macintosh begin at 10000. The lower half of each
// is ASCII. Constant; any thread at once.

#pragma once

#include <string_view>

namespace platform {

/// Returns the characters of the bytes 0x80 to 0xFF in the code page `number`, U+FFFD for those
/// that it leaves free; empty when it is no single-byte one, or unknown.
///
/// Those of the Macintosh for Hebrew and Thai are answered by their neighbours of Windows, whose
/// letters stand at the same places.
[[nodiscard]] std::u16string_view upperHalfOfCodePage(int number);

}  // namespace platform
