// Tells where the paragraphs of a PDF page end.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "Platform/Text/PdfFlow.h"
#include "Platform/Text/PdfLineText.h"

namespace platform {

/// Returns, for each line of a page, whether it goes on with the paragraph of the one before it.
/// `flows` says how many lines each stretch of a column has.
///
/// A paragraph ends where a wider space follows, where size or font change as a whole, where the
/// next line begins farther in, where an item of a list begins, behind dots that lead to a number,
/// and where the next line's first word would still have had room. Behind a letter and a hyphen
/// only an item, rows of a table and much room end it.
[[nodiscard]] std::vector<bool> linesThatGoOn(std::span<const PdfTextLine> lines,
                                              std::span<const std::size_t> flows,
                                              std::span<const PdfFont> fonts);

/// Whether a line ends with a letter and a hyphen, whichever character that is.
[[nodiscard]] bool endsInBrokenWord(const PdfLineText& text);

}  // namespace platform
