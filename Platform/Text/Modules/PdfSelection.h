// What the library's selections tell of a page of a PDF file.
//
// One thread at a time for the pages of one file.

#pragma once

#include "Platform/Text/Modules/PdfContents.h"

using PopplerPage = struct _PopplerPage;

namespace platform {

/// Reads a page into empty contents by a selection from one corner to the other. That may leave
/// something out, as the contents know.
void readSelection(PopplerPage* page, PdfPageContents& contents);

/// Gives characters the fonts of those that selections have at their places.
void findFonts(PopplerPage* page, PdfPageContents& contents);

/// Looks for the characters that words have behind their zeros.
void findMissing(PopplerPage* page, PdfPageContents& contents);

}  // namespace platform
