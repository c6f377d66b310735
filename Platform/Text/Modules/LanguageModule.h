// What the module `language` offers: how much CLD2's tables of letters in a row speak for each
// language.
//
// Any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>

#include "Platform/Text/Modules/Module.h"
#include "Platform/Text/Scripts.h"

namespace platform {

/// A language by CLD2's code, which lives as long as the module, and how much speaks for it.
struct Cld2Score {
    const char* code;
    std::int32_t score;
};

struct LanguageFunctions : ModuleHead {
    static constexpr char kName[] = "language";

    /// Most languages that one script has.
    static constexpr std::size_t kMostScores = 255;

    /// The number of NULs that must follow a text, because it is read in steps of several bytes.
    static constexpr std::size_t kPadding = 16;

    /// Writes a score for each language that any letters in a row speak for, at most kMostScores,
    /// and returns their number; none when there is no memory.
    ///
    /// Requires: `script` is one that languages share. `text` is UTF-8, words of `script` in small
    /// letters with one blank before each and one behind the last; `length` is at most 8,192, and
    /// kPadding NULs follow.
    std::size_t (*score)(Script script, const char* text, std::size_t length, Cld2Score* scores);
};

}  // namespace platform
