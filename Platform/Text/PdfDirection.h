// Characters that are read from the right, and the order in which the characters of a line are
// read.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace platform {

/// Whether a character lies among the scripts that are read from the right.
[[nodiscard]] constexpr bool isFromTheRight(char32_t character) noexcept {
    if (character < 0x590) {
        return false;
    }
    return character <= 0x8FF || (character >= 0xFB1D && character <= 0xFDFF) ||
           (character >= 0xFE70 && character <= 0xFEFE) ||
           (character >= 0x10800 && character <= 0x10FFF) ||
           (character >= 0x1E800 && character <= 0x1EFFF);
}

/// Whether a character is a letter of another script, or nearly always one.
[[nodiscard]] constexpr bool isFromTheLeft(char32_t character) noexcept {
    return (character >= U'A' && character <= U'Z') || (character >= U'a' && character <= U'z') ||
           (character >= 0xC0 && character < 0x2000 && !isFromTheRight(character)) ||
           (character >= 0x3040 && character < 0xFB1D) || character >= 0x10000;
}

/// Whether a character is a mark that stands on a letter.
[[nodiscard]] bool isPdfMark(char32_t character);

/// A character of a line, or a letter with the marks that stand on it.
struct PdfCell {
    /// The line's items that it is made of: `first` up to `end`, the letter before its marks.
    std::uint32_t first = 0;
    std::uint32_t end = 0;
    char32_t character = 0;
    /// Signs within numbers and beside them are numbers, too.
    CharacterDirection direction = CharacterDirection::Neutral;
};

/// Puts the cells of a line, given from its left to its right, into the order in which they are
/// read; their directions are found here. In a line that is read from the right, what has letters
/// of other scripts keeps its order, and so do numbers in both; the other way round it is the same.
/// What belongs to a number is what Unicode's rules for writing such lines say, read backwards:
/// separators between its digits and, unless it follows Arabic letters, signs as that of percent
/// and currency; a minus before it, too, as writers disagree about that.
void orderAsRead(std::vector<PdfCell>& cells, bool readsFromTheRight);

}  // namespace platform
