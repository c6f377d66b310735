// Reads HTML: pages of the web and of mail, XHTML among them.
//
// Stateless; any thread at once.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// Returns the text of a page; a Fault when its bytes are no text. No page is wrong otherwise:
/// markup means what it means to browsers, whatever it is.
///
/// Its encoding is that of the byte-order mark, or else the declared one, or else a guess
/// (HtmlEncoding.h).
///
/// Paragraphs and other blocks end with U+000A and have no empty lines between them, lines that
/// <br> ends with U+2028. Blanks and line ends of the source are one blank, except where the page
/// says that they count. Cells of a table have a tab between them, and each row ends with U+000A.
/// An item of a list begins with its marker between two tabs. Of pictures there is their
/// alternative text, of fields and buttons their values, of scripts nothing but what stands in for
/// them. Readings in small print follow, in parentheses, the text that they belong to. Left out are
/// what is hidden, the page's title and all that is no text: comments, scripts, styles and
/// templates.
///
/// Fonts, links, underlines, headings, lists, alignment and direction become attributes. They are
/// those of the elements, sizes of <font> left out, and links are as the page has them, whatever
/// their base is. Of style sheets nothing is read but, where it stands in the element, whether it
/// is displayed, stands in lines of its own or keeps its blanks.
///
/// Costs time in proportion to the page's size, and memory up to about six times it; raises
/// std::bad_alloc when there is not so much. To that end elements nest 448 deep at most, a deeper
/// one ending the innermost, and text has no attributes behind so many runs, or in so many looks,
/// as no author writes.
///
/// It is what the platform's initWithHTML:documentAttributes: does.
Result<AttributedString> attributedStringFromHtml(const Data& data);

}  // namespace platform
