// The lines of a page of a PDF file.
//
// Plain values; any thread at once.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Text/PdfWords.h"

namespace platform {

/// Words of one piece that follow each other without a wide gap: those from `first` up to `end` of
/// one turn's.
struct PdfFragment {
    std::uint32_t first = 0;
    std::uint32_t end = 0;
    std::uint32_t piece = 0;
    double size = 1;
    PdfBox box;
    /// Whether it is nothing but marks, which stand over letters.
    bool isOfMarks = false;
};

/// In sizes: the narrowest gap that may lie between columns.
inline constexpr double kPdfColumnGap = 0.9;

/// Returns the fragments of `words` in their order.
[[nodiscard]] std::vector<PdfFragment> fragmentsOf(std::span<const PdfWord> words,
                                                   std::span<const PdfGlyph> glyphs);

/// White space between words that could part columns.
struct PdfGap {
    double left = 0;
    double right = 0;
};

/// Words that stand beside each other.
struct PdfLine {
    /// The fragments, from the left.
    std::vector<std::uint32_t> fragments;
    /// Those of its words that have the line's size; smaller ones may stand higher or lower.
    PdfBox box;
    /// The wide gaps between fragments, from the left.
    std::vector<PdfGap> gaps;
    /// The size of most of its text.
    double size = 1;
    /// Whether it begins with a capital as tall as several lines; the box begins behind that.
    bool hasTallCapital = false;
};

/// Puts fragments together to lines, from the top. What stands beside something else belongs to its
/// line, unless both stand over one another, and what is as tall as several lines to the first of
/// them.
[[nodiscard]] std::vector<PdfLine> linesOf(std::span<const std::uint32_t> flow,
                                           std::span<const PdfFragment> fragments);

}  // namespace platform
