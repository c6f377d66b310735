// Makes the text of a page of a PDF file from where its characters stand.
//
// Pure function; any thread at once. Time and memory are bounded by the number of characters,
// wherever a hostile file puts them.

#pragma once

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/PdfPageText.h"

namespace platform {

/// Returns the text of a page with its fonts as "NSFont".
///
/// Columns are read one after the other, what stands above and below them in its place; text that
/// runs in other directions than most of the page comes last, or before a paragraph that ends the
/// page with a broken word. The lines of a paragraph are joined by a blank, or by nothing where
/// scripts without blanks stand on both sides (Han, kana, Bopomofo, Thai, Lao, Khmer, Myanmar) or
/// digits stand on both sides of a hyphen, and the paragraph ends with a line feed. So does the
/// page, unless its last line ends in a letter and a hyphen, which a blank follows; a page without
/// text is empty. A hyphen at a line's end is U+002D, whatever it was; elsewhere soft hyphens are
/// left out. Ligatures, other forms of letters and radicals become what they stand for, a letter
/// and marks that follow it in Unicode's order one character where there is one, and what reads
/// from the right comes in the order in which it is read. Control characters and codes for private
/// use are left out.
[[nodiscard]] AttributedString attributedStringFromPdfPage(const PdfPageText& page);

}  // namespace platform
