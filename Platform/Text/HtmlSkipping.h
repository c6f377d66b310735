// What of a page is neither text nor a tag: comments, declarations, and what scripts and the like
// hold, where tags mean nothing.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <string_view>

#include "Platform/Text/HtmlTag.h"

namespace platform {

/// Returns the length of the comment, declaration or instruction that `text` begins with, to its
/// end or that of the text; 0 when it begins with none. In XML, a document type may hold more.
[[nodiscard]] std::size_t htmlCommentLength(std::string_view text, HtmlSyntax syntax);

/// Returns how many bytes stand before the end tag of an element that holds no tags; all of them
/// when it has none. A script may hold another one in a comment.
[[nodiscard]] std::size_t lengthToHtmlEndTag(std::string_view text, std::string_view name);

}  // namespace platform
