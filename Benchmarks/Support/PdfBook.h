// A book as a PDF file that the benchmarks read.
//
// A pure function; any thread at once.

#pragma once

#include <string>

namespace bench {

/// Returns a book of 300 pages as typesetters make them: a headline and a number on each page,
/// paragraphs with indents in English, words broken at the ends of lines, fonts whose letters come
/// with a table.
[[nodiscard]] std::string pdfBook();

}  // namespace bench
