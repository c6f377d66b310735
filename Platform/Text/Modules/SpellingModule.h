// What the module `spelling` offers: whether a word stands in a dictionary.
//
// Any number of threads at once; a dictionary that is being loaded holds up those alone who ask it.

#pragma once

#include <cstddef>
#include <cstdint>

#include "Platform/Text/Modules/Module.h"

namespace platform {

enum class SpellingVerdict : std::uint8_t {
    Right,
    Misspelled,
    NoDictionary,  ///< the dictionary's files cannot be read, or are in an unknown encoding
    NoMemory
};

struct SpellingFunctions : ModuleHead {
    static constexpr char kName[] = "spelling";

    /// Looks up a word of `length` UTF-16 units in the dictionary whose files are `path` with
    /// ".aff" and ".dic". Loads it when it is none of the last few that were asked.
    SpellingVerdict (*check)(const char* path, const char16_t* word, std::size_t length);
};

}  // namespace platform
