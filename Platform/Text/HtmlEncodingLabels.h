// The names that pages declare their encodings by.
//
// A pure function; any thread at once.

#pragma once

#include <string_view>

namespace platform {

/// Returns the encoding that a label means to browsers, by a name that CodePageConverter takes;
/// null for a label that they do not know. Its case does not count, nor do blanks around it.
[[nodiscard]] const char* encodingOfHtmlLabel(std::string_view label);

}  // namespace platform
