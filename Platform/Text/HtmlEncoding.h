// Which encoding a page is in, and its text in UTF-8.
//
// Pure functions; any thread at once.

#pragma once

#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"

namespace platform {

/// Returns the encoding that a page declares, by a name that CodePageConverter takes; null when it
/// declares none that pages may be in.
///
/// It is looked for in the XML declaration and in the tags meta of the page's first 16 KB, outside
/// comments; browsers look into scripts, too. Labels mean what they mean to browsers: "iso-8859-1"
/// and "ascii" are windows-1252, "gb2312" is gb18030, "utf-16" is UTF-8, since the tag could be
/// read.
[[nodiscard]] const char* declaredHtmlEncoding(std::string_view page);

/// Returns a page in UTF-8, which is sound and has no byte-order mark. Shares the bytes of one that
/// is so. A Fault when the bytes are no text.
///
/// The first of these tells the encoding: a byte-order mark; UTF-16 or UTF-32 that is evident,
/// where the page does not begin with markup in bytes; the declaration, unless it is UTF-8 and the
/// bytes are something else; what plain text goes by (PlainText.h). What is no character becomes
/// U+FFFD.
[[nodiscard]] Result<Data> utf8OfHtml(const Data& page);

}  // namespace platform
