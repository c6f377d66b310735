// What the lines of a PDF page say, in the order in which they are read.
//
// Plain values; any thread at once.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Text/PdfLines.h"
#include "Platform/Text/PdfWords.h"

namespace platform {

/// A character of a text, and the place of its font among the page's.
struct PdfCharacter {
    char32_t character = 0;
    std::uint32_t font = 0;
};

/// A line as text. Blanks part its words, none is at its ends.
struct PdfLineText {
    std::vector<PdfCharacter> characters;
    bool readsFromTheRight = false;
    /// How much room its first word takes, or as much of a script without blanks as goes together
    /// into the next line.
    double startWidth = 0;
};

/// The words of a page's turn and what they are made of.
struct PdfLineSource {
    const PdfPageWords& page;
    std::span<const PdfWord> words;
    std::span<const PdfFragment> fragments;
};

[[nodiscard]] PdfLineText textOfLine(const PdfLine& line, const PdfLineSource& source);

/// Whether a character belongs to a script that has no blanks between words, or is one of its
/// signs.
[[nodiscard]] bool standsWithoutBlanks(char32_t character) noexcept;

}  // namespace platform
