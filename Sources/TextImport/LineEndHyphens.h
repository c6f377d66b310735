// Tells which hyphens of a text are left of words that were broken at the ends of lines.
//
// Positions count UTF-16 units. An object belongs to one thread at a time; what it is made with
// must stay as it is while it lives.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Range.h"
#include "Platform/Text/SpellChecker.h"
#include "Sources/TextAnalysis/LanguageFinder.h"

namespace parlavox {

/// The rule of ImportUtils::shouldDeleteHyphenAtRange for the hyphens of one text. Those in
/// ascending order cost little more than the text around them.
class LineEndHyphens {
public:
    LineEndHyphens(std::u16string_view string, const platform::SpellChecker& checker,
                   const std::vector<std::string>& availableLanguages,
                   LanguageTagging tagging = platform::LanguageTagger::dominantLanguageForString)
        : string_(string),
          checker_(checker),
          availableLanguages_(availableLanguages),
          languages_(string, std::nullopt, tagging) {}

    /// Whether the "- " at `hyphen` is to be deleted.
    ///
    /// Raises RangeException when the range does not lie in the text.
    [[nodiscard]] bool shouldDelete(platform::Range hyphen);

private:
    [[nodiscard]] std::optional<std::uint64_t> startOfWordBefore(std::uint64_t end) const;
    [[nodiscard]] std::optional<std::uint64_t> endOfWordBehind(std::uint64_t start) const;
    [[nodiscard]] bool canCheck(const std::string& language) const;

    const std::u16string_view string_;
    const platform::SpellChecker& checker_;
    const std::vector<std::string>& availableLanguages_;
    LanguageFinder languages_;
};

}  // namespace parlavox
