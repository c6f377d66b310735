// Glyphs of a PDF page that stand for several letters.
//
// Pure function; any thread at once.

#pragma once

#include <vector>

#include "Platform/Text/PdfWords.h"

namespace platform {

/// Puts the letters of lam and alef, which Arabic writes as one glyph, into the order of the page.
///
/// The library makes two boxes of such a glyph, each half as wide, in the order in which they are
/// read; all other letters come as they stand on the page. So two of about one width are a glyph's
/// halves, unless a lam that stands elsewhere is exactly as wide.
void partLigatures(std::vector<PdfGlyph>& glyphs);

}  // namespace platform
