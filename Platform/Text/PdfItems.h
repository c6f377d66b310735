// Lines that begin or end an entry: of a list, of a table of contents.
//
// Pure functions; any thread at once.

#pragma once

#include <vector>

#include "Platform/Text/PdfFlow.h"

namespace platform {

/// Returns, for each line of a flow, whether it begins an item of a list: with a bullet, or with a
/// number or letter that follows that of another item, or is followed by it, in the same form and
/// at the same place.
[[nodiscard]] std::vector<bool> linesThatBeginItems(const PdfFlow& flow);

/// Whether a line ends in dots that lead to a number, or to nothing.
[[nodiscard]] bool endsInLeader(const PdfLineText& text);

}  // namespace platform
