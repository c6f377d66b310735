// Where blanks belong between the characters of a page.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <span>

#include "Platform/Text/PdfWords.h"

namespace platform {

/// A character of a text, and the place of its font among the page's.
struct PdfCharacter {
    char32_t character = 0;
    std::uint32_t font = 0;
};

/// In sizes: the narrowest blank between letters that come one by one.
inline constexpr double kPdfBlank = 0.15;

/// Whether a character is a hyphen that may stand at a line's end.
[[nodiscard]] bool isPdfHyphen(char32_t character) noexcept;

/// Whether a character belongs to Han, kana or Bopomofo, or is one of their signs.
[[nodiscard]] bool isIdeographic(char32_t character);

/// Whether a character belongs to a script that has no blanks between words, or is one of its
/// signs.
[[nodiscard]] bool standsWithoutBlanks(char32_t character);

/// Whether a word begins with characters that stand without blanks. Quotation marks and other signs
/// that scripts share belong to the ideographs behind them.
[[nodiscard]] bool beginsWithoutBlanks(std::span<const PdfGlyph> word);

/// Whether no blank joins a line with the next one, because of their scripts or because they part a
/// number at its hyphen.
[[nodiscard]] bool joinWithoutBlank(std::span<const PdfCharacter> above,
                                    std::span<const PdfCharacter> below);

/// Whether something is much larger than text beside it, as a capital is that stands beside several
/// of its lines.
[[nodiscard]] bool isMuchLarger(double size, double text);

/// Whether a blank belongs between two words that stand beside each other. `followEachOther`: in
/// the order of the library, too, which has seen within a piece how wide the line's blanks are and
/// knows better than a width for all.
[[nodiscard]] bool hasBlankBetween(const PdfWord& before, const PdfWord& word, bool followEachOther,
                                   std::span<const PdfGlyph> glyphs);

}  // namespace platform
