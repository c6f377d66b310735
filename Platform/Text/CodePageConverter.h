// Text in one of the many encodings that the Unicode library knows, the multi-byte ones among them.
//
// An object belongs to one thread at a time.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace platform {

/// Whether bytes are all there is, or others follow.
enum class BytesFollow : bool { No, Yes };

/// Converts bytes to UTF-16, in pieces that may end inside a character.
class CodePageConverter {
public:
    /// Returns a converter of the code page `name`, "windows-932" or "euc-jp" for example; null
    /// when the library has none.
    [[nodiscard]] static std::unique_ptr<CodePageConverter> converterNamed(const char* name);

    CodePageConverter(const CodePageConverter&) = delete;
    CodePageConverter& operator=(const CodePageConverter&) = delete;
    ~CodePageConverter();

    /// Appends the text of `bytes`, with U+FFFD for what is no character, and returns how often
    /// that was so.
    ///
    /// When no bytes follow, a character that is incomplete is none, and the converter starts anew.
    std::size_t append(std::u16string& text, std::string_view bytes,
                       BytesFollow follow = BytesFollow::No);

private:
    CodePageConverter(const UnicodeFunctions& functions, CodePage* codePage)
        : functions_(functions), codePage_(codePage) {}

    const UnicodeFunctions& functions_;
    CodePage* const codePage_;
};

}  // namespace platform
