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

/// Why a "- " between two words goes or stays.
enum class HyphenReason : std::uint8_t {
    NoDictionary,  ///< goes: no language is found there, or none that can be checked
    JoinedRight,   ///< goes: the words are right when they are joined
    ApartWrong,    ///< goes: the words are misspelled either way
    Compound,      ///< stays: the words are right with the hyphen and not without it
};

/// A "- " directly between two words, and what becomes of it.
struct HyphenDecision {
    platform::Range hyphen;
    /// The words with the hyphen.
    platform::Range apart;
    /// The language whose spelling decided; nothing when none did.
    std::optional<std::string> language;
    HyphenReason reason = HyphenReason::NoDictionary;

    [[nodiscard]] bool isDeleted() const { return reason != HyphenReason::Compound; }
};

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

    /// Decides about all "- " directly between two words, in the order of the text. Asks for the
    /// words of one language after those of another, so that each dictionary is loaded once.
    [[nodiscard]] std::vector<HyphenDecision> decisions();

    /// Returns the ranges of all "- " that are to be deleted, in the order of the text.
    [[nodiscard]] std::vector<platform::Range> rangesToDelete();

private:
    /// A "- " directly between two words, and the words with what is between them.
    struct BrokenWord {
        platform::Range hyphen;
        platform::Range apart;
    };

    [[nodiscard]] std::optional<BrokenWord> brokenWordAt(platform::Range hyphen) const;
    [[nodiscard]] std::optional<std::string> checkedLanguageOf(const BrokenWord& word);
    [[nodiscard]] HyphenReason reasonFor(const BrokenWord& word, const std::string& language) const;
    [[nodiscard]] std::optional<std::uint64_t> startOfWordBefore(std::uint64_t end) const;
    [[nodiscard]] std::optional<std::uint64_t> endOfWordBehind(std::uint64_t start) const;
    [[nodiscard]] bool canCheck(const std::string& language) const;

    const std::u16string_view string_;
    const platform::SpellChecker& checker_;
    const std::vector<std::string>& availableLanguages_;
    LanguageFinder languages_;
};

}  // namespace parlavox
