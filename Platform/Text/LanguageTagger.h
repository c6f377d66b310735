// Tells the language that a text is written in.
//
// Pure functions; any thread at once.

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A class of class-level operations; there are no instances.
class LanguageTagger {
public:
    LanguageTagger() = delete;

    /// Returns the language of `string` as the platform's code, such as en or zh-Hans; "und" when
    /// it cannot be told.
    ///
    /// Selector: dominantLanguageForString:
    [[nodiscard]] static std::string dominantLanguageForString(std::u16string_view string);
};

}  // namespace platform
