// Makes attributed text of a file's bytes, whatever format they have.
//
// The format is found in the bytes themselves. Known today: plain text in UTF-8, and in UTF-16 with
// a byte-order mark. Stateless; any thread at once.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// Returns the text that `data` holds, or a Fault when it is in no known format.
///
/// A byte-order mark is left out; line ends are kept; characters of control that no text has are a
/// sign of another format. A lone surrogate is kept as it is.
///
/// Selector: readFromData:
Result<AttributedString> attributedStringFromData(const Data& data);

}  // namespace platform
