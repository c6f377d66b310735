// Makes attributed text of a file's bytes, whatever format they have.
//
// The format is found in the bytes themselves (TextFormat.h). Known today: RTF (RtfReader.h), RTFD
// in one run of bytes (RtfdReader.h), HTML (HtmlReader.h), and plain text in whatever encoding
// (PlainText.h). Stateless; any thread at once.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/TextFormat.h"

namespace platform {

/// Returns the text that `data` holds, or a Fault when it is in no known format.
///
/// What begins as no other format is `otherwise`, plain text or HTML: a piece of a page has nothing
/// that tells it from text with markup. PDF is Unsupported, and so are pictures, archives and other
/// data that is no text; XML and other markup is plain text.
///
/// It is what the platform's readFromData:options:documentAttributes:error: does without options.
Result<AttributedString> attributedStringFromData(const Data& data,
                                                  TextFormat otherwise = TextFormat::Plain);

}  // namespace platform
