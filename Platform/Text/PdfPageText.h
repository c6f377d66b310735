// What a page of a PDF file says, as it comes from the file: characters, where they stand, and in
// which fonts.
//
// Lengths are in points, from the upper left corner of the page as it is shown, so that a page that
// is shown turned needs nothing more.

#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace platform {

/// Where a character stands. Files are free to say anything; what lies far outside of any page
/// counts as lying at its edge, and what is no number stays none.
struct PdfBox {
    static constexpr double kEdge = 1e6;

    constexpr PdfBox() = default;
    constexpr PdfBox(double toLeft, double toTop, double toRight, double toBottom)
        : left(bounded(toLeft)),
          top(bounded(toTop)),
          right(bounded(toRight)),
          bottom(bounded(toBottom)) {}

    // Pages have many boxes, and none is so large that its characters need more digits.
    float left = 0;
    float top = 0;
    float right = 0;
    float bottom = 0;

private:
    /// In this order of arguments what is no number stays none.
    static constexpr float bounded(double coordinate) {
        return static_cast<float>(std::max(std::min(coordinate, kEdge), -kEdge));
    }
};

/// The font of the characters up to `end`.
struct PdfFontRun {
    std::size_t end = 0;
    std::string_view name;
    double size = 0;
};

/// A page's characters in the order in which the library has them. Blanks part words, line feeds
/// part pieces of lines, which are as long as the library was sure of; neither need be where the
/// reader would see one. The characters of a word come in the order in which they stand on its
/// line, those of a word that reads from the right from its left end, too.
struct PdfPageText {
    std::span<const char32_t> characters;
    /// One for each character.
    std::span<const PdfBox> boxes;
    /// From the start on; what they do not reach has no font.
    std::span<const PdfFontRun> fonts;
};

}  // namespace platform
