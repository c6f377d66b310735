// What the attribute `style` of an element says that its text depends on.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace platform {

/// How an element is laid out in spite of its name.
enum class HtmlDisplay : std::uint8_t { AsItIs, None, Block, Inline };

/// What was found; nothing for what is not said.
struct HtmlInlineStyle {
    HtmlDisplay display = HtmlDisplay::AsItIs;
    std::optional<bool> isPreformatted = std::nullopt;
    /// Whether items of a list have no marker.
    bool hasNoMarker = false;
};

/// Reads declarations such as "display: none; color: red".
[[nodiscard]] HtmlInlineStyle htmlInlineStyleOf(std::string_view declarations);

}  // namespace platform
