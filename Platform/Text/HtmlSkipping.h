// What of a page is neither text nor a tag: comments, declarations, and what scripts and the like
// hold, where tags mean nothing.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// Returns the length of the comment, declaration or instruction that `text` begins with, to its
/// end or that of the text; 0 when it begins with none.
[[nodiscard]] std::size_t htmlCommentLength(std::string_view text);

/// Whether what an element holds is no text of the page and has no tags: a script, say, or the
/// page's title.
[[nodiscard]] bool isDroppedHtmlElement(std::string_view name);

/// Whether an element holds text without tags.
[[nodiscard]] bool isRawHtmlElement(std::string_view name);

/// Returns how many bytes stand before the end tag of an element; all of them when it has none.
[[nodiscard]] std::size_t lengthToHtmlEndTag(std::string_view text, std::string_view name);

}  // namespace platform
