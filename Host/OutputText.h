// Text in the form in which programs get it.
//
// Pure functions; any thread.

#pragma once

#include <string>
#include <string_view>

#include "Host/FileOutcome.h"

namespace host {

/// Returns the text as UTF-8 without NUL and U+FFFC, and with U+FFFD for each lone surrogate.
/// Surrogates that have come together only because a unit between them was dropped stay lone.
[[nodiscard]] std::string utf8ForOutput(std::u16string_view text);

/// Returns `pvindex: subject: message` as one line with its end; control characters are shown as
/// question marks.
[[nodiscard]] std::string errorLine(std::string_view subject, std::string_view message);

/// Returns the outcome as one line of JSON with its end. Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string jsonLine(const FileOutcome& outcome);

}  // namespace host
