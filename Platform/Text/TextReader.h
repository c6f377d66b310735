// Makes attributed text of a file's bytes, whatever format they have.
//
// The format is found in the bytes themselves. Known today: RTF, plain text in UTF-8, and in UTF-16
// and UTF-32 with a byte-order mark. Stateless; any thread at once.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// Returns the text that `data` holds, or a Fault when it is in no known format.
///
/// A byte-order mark is left out; line ends and U+0000 are kept. In UTF-16 a lone surrogate is kept
/// as it is; values that UTF-32 does not allow, and bytes at the end that make no whole unit of
/// either, become U+FFFD.
///
/// Bytes that begin as RTF does are read as that. Those that begin as PDF, flat RTFD or HTML does
/// (HTML after a mark and white space, in any case of letters) are Unsupported; other markup is
/// plain text.
///
/// Binary data is Unsupported: more than one UTF-16 unit in a hundred is a control character that
/// no text needs. Those are U+0000 to U+001F without U+0007 to U+000F (white space, bell,
/// backspace, shifts), U+001A (the end of old files) and U+001B (escape). So a few strays in a long
/// text do no harm, and UTF-16 or UTF-32 without a mark, which is full of NULs, is refused.
///
/// It is what the platform's readFromData:options:documentAttributes:error: does without options.
Result<AttributedString> attributedStringFromData(const Data& data);

}  // namespace platform
