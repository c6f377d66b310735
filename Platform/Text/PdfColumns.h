// The columns of a page of a PDF file, and the order in which they are read.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Text/PdfLines.h"

namespace platform {

/// Returns the numbers of `fragments`, those of each stretch of a column together, in the order in
/// which the stretches are read. What stands side by side is columns where the same gap runs down
/// between several lines of text, and rows of a table where text is short on one side; what runs
/// across the page ends the columns above it.
[[nodiscard]] std::vector<std::vector<std::uint32_t>> flowsOf(
    std::span<const PdfFragment> fragments, bool readsFromTheRight);

}  // namespace platform
