// The Korean code page 1361, which the Unicode library does not have.
//
// One thread at a time for one converter; else any thread at once.

#pragma once

#include <string>
#include <string_view>

#include "Platform/Text/CodePageConverter.h"

namespace platform {

/// Appends text in Johab, with U+FFFD for what is no character. Syllables are put together here;
/// `korean`, a converter of code page 949, knows the signs and the Chinese characters.
void appendJohab(std::u16string& text, std::string_view bytes, CodePageConverter& korean);

}  // namespace platform
