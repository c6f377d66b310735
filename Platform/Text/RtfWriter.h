// Writes attributed text as RTF.
//
// Stateless; any thread at once.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// Returns `text` as RTF: its characters with fonts, sizes, bold and italic as the fonts' names
/// state them, underline, strike-through, raised and lowered text, colours, links, and paragraphs'
/// alignment, direction, indents, spacing and tabs. Attachments are left out, with their
/// characters; other attributes are not written.
///
/// Any UTF-16 can be written, lone surrogates and control characters, too. The result is plain
/// ASCII; it is at most a constant times as long as the text, for each of its runs and paragraphs:
/// of a paragraph's tabs the first 32 are written, and links up to 2,083 units, which is as long as
/// programs take them.
///
/// It is what the platform's RTFFromRange:documentAttributes: does for the whole text.
[[nodiscard]] Data rtfFromAttributedString(const AttributedString& text);

}  // namespace platform
