// Tells the language that a text is written in.
//
// The script decides where one language owns it, the forms of characters among Chinese and
// Japanese. Languages that share a script are told apart by what speaks for each: words, letters
// and letters in a row. Pure functions; any thread at once.

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A class of class-level operations; there are no instances.
class LanguageTagger {
public:
    LanguageTagger() = delete;

    /// Returns the language of `string` as the platform's code, such as en or zh-Hans; "und" when
    /// it cannot be told, and for languages that the platform has no code for.
    ///
    /// It is the language of most of the text, names in other scripts left aside; of a text longer
    /// than two pages the beginning decides. Serbian and Bosnian in Latin letters, which nothing
    /// but vocabulary tells from Croatian, count as hr. A sentence is mostly enough, two or three
    /// words often are.
    ///
    /// Selector: dominantLanguageForString:
    [[nodiscard]] static std::string dominantLanguageForString(std::u16string_view string);
};

}  // namespace platform
