// What stands before the items of lists.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// How the items of a list are marked.
enum class HtmlMarker : std::uint8_t {
    None,
    Disc,
    Circle,
    Square,
    Decimal,
    LowerLetters,
    UpperLetters,
    LowerRoman,
    UpperRoman
};

/// Returns what marks the item of a number, between two tabs as the platform has it; empty for no
/// marker. Numbers that letters or Roman digits cannot write are decimal.
[[nodiscard]] std::u16string textOfHtmlMarker(HtmlMarker marker, std::int32_t number);

/// Returns the marker that the attribute `type` of a list or an item names; `otherwise` when it
/// names none.
[[nodiscard]] HtmlMarker htmlMarkerOfType(std::string_view type, HtmlMarker otherwise);

/// Returns the platform's name of a marker, "{decimal}." for example.
[[nodiscard]] const char* formatOfHtmlMarker(HtmlMarker marker);

}  // namespace platform
