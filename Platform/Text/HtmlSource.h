// A page as the parser gets it: its elements and text, written the plainest way.
//
// Authors write what browsers have always forgiven; the parser forgives other things, and some take
// it a long time. So what it gets has references only to the signs of markup, tags with the
// attributes that mean something, each once and in quotes, the ends of elements where browsers see
// them (HtmlNesting.h), and no comments, no scripts and no control characters.
// Stateless; any thread at once.

#pragma once

#include <string_view>

#include "Platform/Text/HtmlStream.h"

namespace platform {

/// Writes `page` to a parser. Requires: it is sound UTF-8.
///
/// Time is linear in the page's size.
void writeHtmlSource(std::string_view page, HtmlStream& stream);

}  // namespace platform
