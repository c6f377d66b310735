// What the lines of a PDF page say, in the order in which they are read.
//
// Plain values; any thread at once.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Text/PdfBlanks.h"
#include "Platform/Text/PdfLines.h"
#include "Platform/Text/PdfWords.h"

namespace platform {

/// A line as text. Blanks part its words, none is at its ends.
struct PdfLineText {
    std::vector<PdfCharacter> characters;
    bool readsFromTheRight = false;
    /// Whether a code for private use stands before it, which is hardly ever anything but a bullet.
    bool isBehindBullet = false;
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

}  // namespace platform
