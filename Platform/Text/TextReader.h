// Makes attributed text of a file's bytes, whatever format they have.
//
// The format is found in the bytes themselves (TextFormat.h). Known today: RTF (RtfReader.h), RTFD
// in one run of bytes (RtfdReader.h), and plain text in whatever encoding (PlainText.h). Stateless;
// any thread at once.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// Returns the text that `data` holds, or a Fault when it is in no known format.
///
/// PDF and HTML are Unsupported, and so are pictures, archives and other data that is no
/// text; XML and other markup is plain text.
///
/// It is what the platform's readFromData:options:documentAttributes:error: does without options.
Result<AttributedString> attributedStringFromData(const Data& data);

}  // namespace platform
