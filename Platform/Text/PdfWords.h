// The words on a page of a PDF file, and the characters that they are made of.
//
// Plain values; any thread at once.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "Platform/Text/PdfPageText.h"

namespace platform {

/// A font in one size.
struct PdfFont {
    std::string_view name;
    double size = 0;
    /// The same for all sizes of one name.
    std::uint32_t face = 0;
};

/// A character on a page.
struct PdfGlyph {
    char32_t character = 0;
    /// The place of its font among the page's.
    std::uint32_t font = 0;
    /// The size of its font, or what comes nearest to it; above 0.
    float size = 1;
    PdfBox box;
};

/// Characters that stand together: those from `first` up to `end` of the page's.
struct PdfWord {
    std::uint32_t first = 0;
    std::uint32_t end = 0;
    /// Which of the pieces that line feeds part it comes from, and whether a blank parts it there
    /// from the word before.
    std::uint32_t piece = 0;
    bool isBehindBlank = false;
    /// Whether it has letters that are read from the right.
    bool isFromTheRight = false;
    PdfBox box;
    /// Whether a code for private use, which is left out, stands before it on its line.
    bool isBehindBullet = false;
};

/// What a page is made of. Text that runs down, up or upside down is turned until it reads from the
/// left, each kind for itself: boxes of different kinds lie on different pages.
struct PdfPageWords {
    static constexpr std::size_t kTurns = 4;

    std::vector<PdfGlyph> glyphs;
    /// The fonts, each once. The first is none, for characters without one; names lie in the
    /// library's text.
    std::vector<PdfFont> fonts;
    /// The words by their turn, in the order of the characters; the most frequent turn comes first.
    std::array<std::vector<PdfWord>, kTurns> wordsByTurn;
    /// Whether most letters belong to scripts that are read from the right.
    bool readsFromTheRight = false;
};

/// Whether a character is a code for private use. Those that bullets have are the commonest.
[[nodiscard]] constexpr bool isForPrivateUse(char32_t character) noexcept {
    return (character >= 0xE000 && character <= 0xF8FF) || character >= 0xF0000;
}

/// Whether a character of a page is text: neither blank nor control character, no mark of direction
/// and no code for private use, which means nothing outside its font.
[[nodiscard]] bool isPdfText(char32_t character) noexcept;

/// Returns the words of a page. Boxes that are no numbers count as those before them, coordinates
/// far outside of any page as lying at its edge.
[[nodiscard]] PdfPageWords wordsOfPage(const PdfPageText& text);

}  // namespace platform
