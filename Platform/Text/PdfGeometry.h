// Arithmetic with boxes on a page.
//
// Pure functions; any thread at once. They require boxes whose left and top come first.

#pragma once

#include <algorithm>

#include "Platform/Text/PdfPageText.h"

namespace platform {

[[nodiscard]] inline double widthOf(const PdfBox& box) {
    return box.right - box.left;
}
[[nodiscard]] inline double heightOf(const PdfBox& box) {
    return box.bottom - box.top;
}
[[nodiscard]] inline double centreOf(const PdfBox& box) {
    return (box.left + box.right) / 2;
}
[[nodiscard]] inline double middleOf(const PdfBox& box) {
    return (box.top + box.bottom) / 2;
}

/// The smallest box that holds both.
[[nodiscard]] inline PdfBox hullOf(const PdfBox& first, const PdfBox& second) {
    PdfBox hull;
    hull.left = std::min(first.left, second.left);
    hull.top = std::min(first.top, second.top);
    hull.right = std::max(first.right, second.right);
    hull.bottom = std::max(first.bottom, second.bottom);
    return hull;
}

/// How far it is from one box to the other across the page; negative where one lies over the other.
[[nodiscard]] inline double gapAcross(const PdfBox& first, const PdfBox& second) {
    return std::max(second.left - first.right, first.left - second.right);
}

/// Whether each box has at least half of its height, or of the other's, beside the other.
[[nodiscard]] inline bool areLevel(const PdfBox& first, const PdfBox& second) {
    const double shared = std::min(first.bottom, second.bottom) - std::max(first.top, second.top);
    return shared >= std::min(heightOf(first), heightOf(second)) / 2;
}

/// Whether a box stands on the right of another, level with it and three of its heights away at
/// most.
[[nodiscard]] inline bool standsShortlyBehind(const PdfBox& box, const PdfBox& other) {
    return other.left < box.left && gapAcross(other, box) <= 3 * heightOf(box) &&
           areLevel(other, box);
}

}  // namespace platform
