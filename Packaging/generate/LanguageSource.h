// The text that declares languages and their commonest words, read into records.
//
// Pure functions; any thread.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Result.h"
#include "Platform/Text/Scripts.h"

namespace packaging {

/// A language as the text declares it.
struct LanguageRecord {
    std::string code;
    platform::Script script = platform::Script::None;
    bool isNamed = true;
    int lead = 0;
    std::u16string letters;             ///< beyond the plain ones of its script
    std::vector<std::string> models;    ///< files of n-grams, without folder and ending
    std::vector<std::string> aliases;   ///< CLD2's codes, the own one among them
    std::vector<std::u16string> words;  ///< the commonest first, none twice
};

/// Returns the languages in the order of their declarations. A fault tells the line.
[[nodiscard]] platform::Result<std::vector<LanguageRecord>> languagesFromText(
    std::string_view text);

}  // namespace packaging
