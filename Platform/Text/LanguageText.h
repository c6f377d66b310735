// The letters of a text as the language tagger looks at them: how many there are of each script,
// and the words of one script in small letters.
//
// Only the beginning of a long text counts, about as much of it as two pages. Values; any thread at
// once.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/HanForms.h"
#include "Platform/Text/Scripts.h"

namespace platform {

/// How many letters of each script a text has.
struct LetterCounts {
    std::array<std::uint32_t, kScriptCount> letters{};
    std::uint32_t latinInNames = 0;  ///< Latin letters of words that begin with a capital
    std::array<std::uint32_t, kHanFormCount> hanForms{};

    [[nodiscard]] std::uint32_t of(Script script) const {
        return letters[static_cast<std::size_t>(script)];
    }
    [[nodiscard]] std::uint32_t of(HanForm form) const {
        return hanForms[static_cast<std::size_t>(form)];
    }
};

[[nodiscard]] LetterCounts countLetters(std::u16string_view text);

/// A word, as a stretch of the letters of its text.
struct LanguageWord {
    std::uint32_t start;
    std::uint32_t length;
    bool isBehindApostrophe;
    bool isBeforeApostrophe;
};

/// The words of one script in a text; an apostrophe parts words.
struct LanguageText {
    /// Small letters, with one '_' before each word and one behind the last.
    std::u16string letters{u'_'};
    std::vector<LanguageWord> words;
};

/// Returns the words that `text` has in `script`, at most kMostLanguageLetters letters of them.
[[nodiscard]] LanguageText wordsInScript(std::u16string_view text, Script script);

inline constexpr std::size_t kMostLanguageLetters = 2000;

}  // namespace platform
