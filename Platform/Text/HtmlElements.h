// The elements of HTML that mean something to a page's text.
//
// Constant data; any thread at once.

#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

/// What an element does to the text around and inside it.
enum class HtmlRole : std::uint8_t {
    Inline,        ///< goes on in the line
    Block,         ///< stands in lines of its own
    Heading,       ///< a block that heads others
    Preformatted,  ///< a block whose blanks and line ends count
    Hidden,        ///< is not shown
    Dialog,        ///< a block that is not shown unless it is open
    Break,         ///< ends a line
    List,
    NumberedList,
    Item,
    Table,
    Row,
    Cell,
    Image,    ///< stands for its alternative text
    Input,    ///< shows its value
    Options,  ///< a block that shows its label
    Ruby,     ///< text with its reading
    Reading
};

/// How an element's text looks.
enum class HtmlStyle : std::uint8_t {
    None,
    Bold,
    Italic,
    Underlined,
    Struck,
    Monospaced,
    Raised,
    Lowered,
    Smaller,
    Larger,
    Link,
    Centered
};

struct HtmlElement {
    std::string_view name;
    HtmlRole role;
    HtmlStyle style = HtmlStyle::None;
    /// Whether it is one of the pictures and formulas that HTML has from XML.
    bool isForeign = false;
};

/// Returns what is known of an element by its name in lower case; null for one that is
/// not known. It lives as long as the code.
[[nodiscard]] const HtmlElement* htmlElementNamed(std::string_view name);

}  // namespace platform
