// How many items the list has that a page begins.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

struct HtmlItems {
    std::size_t count = 0;
    /// How much of the page was looked at.
    std::size_t length = 0;
};

/// Counts the items of the list whose start tag stands before `text`, to the end of the list or the
/// text. Those of lists inside it are not among them.
[[nodiscard]] HtmlItems countHtmlItems(std::string_view text);

}  // namespace platform
