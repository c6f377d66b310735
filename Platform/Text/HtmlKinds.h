// What elements do to text: the few kinds that all elements of HTML come down to.
//
// The parser is told the kind and not the element, under the name of an element that it neither
// ends by itself nor takes for empty: libxml2 has rules of its own about which element ends which,
// and they are not those of browsers (HtmlNesting.h). Constant data; any thread at once.

#pragma once

#include <cstdint>
#include <iterator>
#include <string_view>

namespace platform {

/// What an element does to the text around and inside it.
enum class HtmlRole : std::uint8_t {
    Inline,        ///< goes on in the line
    Page,          ///< the whole page
    Control,       ///< goes on in the line, apart from what stands beside it
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

struct HtmlKind {
    /// "</div>" for example.
    std::string_view endTag;
    HtmlRole role;
    HtmlStyle style = HtmlStyle::None;
    /// 1 to 6 for headings.
    std::uint8_t level = 0;

    /// The name that the parser gets.
    [[nodiscard]] constexpr std::string_view name() const {
        return endTag.substr(2, endTag.size() - 3);
    }
};

/// Names without a rule in libxml2 that two of them fall under. Those that fit are themselves.
inline constexpr HtmlKind kHtmlKinds[] = {
    {"</span>", HtmlRole::Inline},
    {"</q>", HtmlRole::Inline, HtmlStyle::Link},
    {"</strong>", HtmlRole::Inline, HtmlStyle::Bold},
    {"</em>", HtmlRole::Inline, HtmlStyle::Italic},
    {"</ins>", HtmlRole::Inline, HtmlStyle::Underlined},
    {"</del>", HtmlRole::Inline, HtmlStyle::Struck},
    {"</code>", HtmlRole::Inline, HtmlStyle::Monospaced},
    {"</sup>", HtmlRole::Inline, HtmlStyle::Raised},
    {"</sub>", HtmlRole::Inline, HtmlStyle::Lowered},
    {"</small>", HtmlRole::Inline, HtmlStyle::Smaller},
    {"</big>", HtmlRole::Inline, HtmlStyle::Larger},
    {"</iframe>", HtmlRole::Page},
    {"</button>", HtmlRole::Control},
    {"</div>", HtmlRole::Block},
    {"</address>", HtmlRole::Block, HtmlStyle::Italic},
    {"</center>", HtmlRole::Block, HtmlStyle::Centered},
    {"</h1>", HtmlRole::Heading, HtmlStyle::Bold, 1},
    {"</h2>", HtmlRole::Heading, HtmlStyle::Bold, 2},
    {"</h3>", HtmlRole::Heading, HtmlStyle::Bold, 3},
    {"</h4>", HtmlRole::Heading, HtmlStyle::Bold, 4},
    {"</h5>", HtmlRole::Heading, HtmlStyle::Bold, 5},
    {"</h6>", HtmlRole::Heading, HtmlStyle::Bold, 6},
    {"</pre>", HtmlRole::Preformatted, HtmlStyle::Monospaced},
    {"</noscript>", HtmlRole::Hidden},
    {"</label>", HtmlRole::Dialog},
    {"</br>", HtmlRole::Break},
    {"</blockquote>", HtmlRole::List},
    {"</ol>", HtmlRole::NumberedList},
    {"</legend>", HtmlRole::Item},
    {"</map>", HtmlRole::Table},
    {"</kbd>", HtmlRole::Row},
    {"</dfn>", HtmlRole::Cell},
    {"</var>", HtmlRole::Cell, HtmlStyle::Bold},
    {"</img>", HtmlRole::Image},
    {"</input>", HtmlRole::Input},
    {"</optgroup>", HtmlRole::Options},
    {"</abbr>", HtmlRole::Ruby},
    {"</bdo>", HtmlRole::Reading},
};

/// Returns the kind that does what is said. Requires: there is one.
[[nodiscard]] constexpr const HtmlKind* htmlKindOf(HtmlRole role, HtmlStyle style,
                                                   std::uint8_t level) {
    const HtmlKind* kind = std::begin(kHtmlKinds);
    while (kind->role != role || kind->style != style || kind->level != level) {
        ++kind;
    }
    return kind;
}

/// Returns the kind that the parser gets under a name; null when it gets none under it.
[[nodiscard]] const HtmlKind* htmlKindNamed(std::string_view name);

}  // namespace platform
