// Stretches of a part of a page that stand below one another.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Text/PdfLines.h"

namespace platform {

/// A stretch across the page.
struct PdfInterval {
    double left = 0;
    double right = 0;
};

/// Fragments that stand beside each other.
struct PdfBand {
    /// From the top.
    std::vector<std::uint32_t> numbers;
    double top = 0;
    double bottom = 0;
    /// Where it is not white across the page, from the left.
    std::vector<PdfInterval> intervals;
};

/// Joins intervals with less than `gap` between them and puts them in their order.
void joinIntervals(std::vector<PdfInterval>& intervals, double gap);

/// Returns the bands of the fragments `part`, from the top; `size` is what most of them have. Bands
/// are parted by white space, but lines of different columns may stand so that none ends above the
/// next: each begins beside the one before, and in another place across the page.
[[nodiscard]] std::vector<PdfBand> bandsOf(std::vector<std::uint32_t> part,
                                           std::span<const PdfFragment> fragments, double size);

}  // namespace platform
