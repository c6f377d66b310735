// Property lists in the old text format, and strings files, which are such lists without braces.
//
//     { title = "The lighthouse"; pages = (1, 2, 3); picture = <89504e47>; }
//
// Whatever is no container and no data is a string, numbers included. Nobody writes the format any
// more; files in it are still around.
// Stateless; any thread at once.

#pragma once

#include <string_view>

#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// Returns the value that the list `text` holds: an empty dictionary when there is nothing but
/// white space and comments, a dictionary when it begins with a string and goes on. Faults name the
/// line.
///
/// Other systems' extensions for numbers, dates and base64 are faults, and so is a missing ";".
Result<Value> valueFromOpenStep(std::u16string_view text);

}  // namespace platform
