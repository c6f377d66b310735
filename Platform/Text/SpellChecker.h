// Finds misspelled words, with the dictionaries that the system's packages install.
//
// No personal word lists are read: an answer depends on the text and the dictionary alone.
// Positions count UTF-16 units. Any thread at once.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Range.h"
#include "Platform/Text/SpellingDictionaries.h"

namespace platform {

/// Looks words up in the dictionaries of some folders. A dictionary is loaded when a language is
/// first asked for, the last few stay.
class SpellChecker {
public:
    /// A checker with the dictionaries that `folders` hold now.
    explicit SpellChecker(const std::vector<std::string>& folders) : dictionaries_(folders) {}

    /// A checker with the dictionaries that are installed now.
    ///
    /// Selector: sharedSpellChecker
    [[nodiscard]] static SpellChecker sharedSpellChecker();

    /// The languages that can be checked, such as "en_US" or "eo", the usual one of each first: see
    /// SpellingDictionaries.
    ///
    /// Selector: availableLanguages
    [[nodiscard]] const std::vector<std::string>& availableLanguages() const {
        return dictionaries_.identifiers();
    }

    /// Returns the range of the first misspelled word that begins at `startingAt` or later;
    /// {kNotFound, 0} when there is none, and when there is no dictionary for `language`.
    ///
    /// Words are the text's word units; those without a letter are right. "en" stands for the first
    /// available language that begins so. Words of more than 100 units are misspelled.
    ///
    /// Raises RangeException when `startingAt` lies behind the text's end. It is what the
    /// platform's checkSpellingOfString:startingAt:language:wrap:inSpellDocumentWithTag:wordCount:
    /// does without wrapping, for no document.
    [[nodiscard]] Range checkSpellingOfString(std::u16string_view string, std::uint64_t startingAt,
                                              std::string_view language) const;

private:
    SpellingDictionaries dictionaries_;
};

}  // namespace platform
