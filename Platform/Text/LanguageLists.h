// The lists of languages that the build makes beside the tables of LanguageModel.h; only the
// model's own code looks at them.

#pragma once

#include "Platform/Text/LanguageModel.h"

namespace platform {

/// A code that CLD2 uses, and the place of the language that it means.
struct CodeOfLanguage {
    std::string_view code;
    std::uint8_t place;
};

/// A letter that not all languages write, and the bits of those that do.
struct LetterOfLanguages {
    char16_t letter;
    std::uint64_t languages;
};

/// The languages that share a script; their codes and their letters in order.
struct LanguageList {
    std::span<const Language> languages;
    std::span<const CodeOfLanguage> codes;
    std::span<const LetterOfLanguages> letters;
};

/// For each script that languages share, in the scripts' order.
extern const LanguageList kLanguageLists[kSharedScriptCount];

}  // namespace platform
