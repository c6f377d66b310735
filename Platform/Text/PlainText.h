// Plain text in whatever encoding, as UTF-16.
//
// Pure functions; any thread at once. Time is linear in the bytes, and only a bounded sample of
// them is looked at to guess an encoding.

#pragma once

#include <string>
#include <string_view>

#include "Platform/Foundation/Result.h"

namespace platform {

/// Returns the text of `bytes`, or a Fault when they are no text. The first of these decides:
///
/// 1. A byte-order mark of UTF-8, UTF-16 or UTF-32, which is left out.
/// 2. UTF-16 or UTF-32 without one, where that is evident (BareWideText.h).
/// 3. ISO-2022-JP and -KR, where their escapes stand in ASCII and all of it converts.
/// 4. UTF-8. A broken byte becomes U+FFFD, and so does each byte of a form that is cut off at the
///    end, as long as there are four sound forms beyond ASCII for each of them.
/// 5. What a detector takes for the likeliest (EncodingDetector.h); windows-1252 at last.
///
/// Line ends and all other characters are kept, NULs and lone surrogates among them.
///
/// Bytes are no text when control characters that no text needs (ControlCharacters.h) are more than
/// a third of the units, NULs at the end aside; where the encoding is a guess, more than two and
/// more than one in 20: data of other kinds is seldom sound UTF-8.
Result<std::u16string> plainTextFromBytes(std::string_view bytes);

}  // namespace platform
