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
    /// "<div></div>" for example.
    std::string_view tags;
    HtmlRole role;
    HtmlStyle style = HtmlStyle::None;
    /// 1 to 6 for headings.
    std::uint8_t level = 0;

    [[nodiscard]] constexpr std::string_view startTag() const {
        return tags.substr(0, tags.size() / 2);
    }
    [[nodiscard]] constexpr std::string_view endTag() const { return tags.substr(tags.size() / 2); }
    /// The name that the parser gets.
    [[nodiscard]] constexpr std::string_view name() const {
        return tags.substr(1, startTag().size() - 2);
    }
};

/// Names without a rule in libxml2 that two of them fall under, but those of rows and cells: a cell
/// comes directly in a row, and a row in no other and in no cell. Where several would do, it is one
/// that the library is quick with.
inline constexpr HtmlKind kHtmlKinds[] = {
    {"<span></span>", HtmlRole::Inline},
    {"<q></q>", HtmlRole::Inline, HtmlStyle::Link},
    {"<b></b>", HtmlRole::Inline, HtmlStyle::Bold},
    {"<i></i>", HtmlRole::Inline, HtmlStyle::Italic},
    {"<u></u>", HtmlRole::Inline, HtmlStyle::Underlined},
    {"<s></s>", HtmlRole::Inline, HtmlStyle::Struck},
    {"<tt></tt>", HtmlRole::Inline, HtmlStyle::Monospaced},
    {"<sup></sup>", HtmlRole::Inline, HtmlStyle::Raised},
    {"<sub></sub>", HtmlRole::Inline, HtmlStyle::Lowered},
    {"<small></small>", HtmlRole::Inline, HtmlStyle::Smaller},
    {"<big></big>", HtmlRole::Inline, HtmlStyle::Larger},
    {"<iframe></iframe>", HtmlRole::Page},
    {"<button></button>", HtmlRole::Control},
    {"<div></div>", HtmlRole::Block},
    {"<cite></cite>", HtmlRole::Block, HtmlStyle::Italic},
    {"<dfn></dfn>", HtmlRole::Block, HtmlStyle::Centered},
    {"<h1></h1>", HtmlRole::Heading, HtmlStyle::Bold, 1},
    {"<h2></h2>", HtmlRole::Heading, HtmlStyle::Bold, 2},
    {"<h3></h3>", HtmlRole::Heading, HtmlStyle::Bold, 3},
    {"<h4></h4>", HtmlRole::Heading, HtmlStyle::Bold, 4},
    {"<h5></h5>", HtmlRole::Heading, HtmlStyle::Bold, 5},
    {"<h6></h6>", HtmlRole::Heading, HtmlStyle::Bold, 6},
    {"<samp></samp>", HtmlRole::Preformatted, HtmlStyle::Monospaced},
    {"<noscript></noscript>", HtmlRole::Hidden},
    {"<label></label>", HtmlRole::Dialog},
    {"<br></br>", HtmlRole::Break},
    {"<blockquote></blockquote>", HtmlRole::List},
    {"<ol></ol>", HtmlRole::NumberedList},
    {"<legend></legend>", HtmlRole::Item},
    {"<map></map>", HtmlRole::Table},
    {"<tr></tr>", HtmlRole::Row},
    {"<td></td>", HtmlRole::Cell},
    {"<th></th>", HtmlRole::Cell, HtmlStyle::Bold},
    {"<img></img>", HtmlRole::Image},
    {"<input></input>", HtmlRole::Input},
    {"<optgroup></optgroup>", HtmlRole::Options},
    {"<abbr></abbr>", HtmlRole::Ruby},
    {"<bdo></bdo>", HtmlRole::Reading},
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
