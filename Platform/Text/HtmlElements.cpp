#include "Platform/Text/HtmlElements.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform {
namespace {

using namespace std::string_view_literals;
using Role = HtmlRole;
using Style = HtmlStyle;

/// In the order of their names.
constexpr HtmlElement kElements[] = {
    {"a"sv, Role::Inline, Style::Link},
    {"abbr"sv, Role::Inline},
    {"acronym"sv, Role::Inline},
    {"address"sv, Role::Block, Style::Italic},
    {"annotation"sv, Role::Hidden, Style::None, true},
    {"annotation-xml"sv, Role::Hidden, Style::None, true},
    {"area"sv, Role::Inline},
    {"article"sv, Role::Block},
    {"aside"sv, Role::Block},
    {"audio"sv, Role::Hidden},
    {"b"sv, Role::Inline, Style::Bold},
    {"base"sv, Role::Inline},
    {"bdi"sv, Role::Inline},
    {"bdo"sv, Role::Inline},
    {"big"sv, Role::Inline, Style::Larger},
    {"blockquote"sv, Role::Block},
    {"body"sv, Role::Inline},
    {"br"sv, Role::Break},
    {"button"sv, Role::Inline},
    {"canvas"sv, Role::Hidden},
    {"caption"sv, Role::Block},
    {"center"sv, Role::Block, Style::Centered},
    {"cite"sv, Role::Inline, Style::Italic},
    {"code"sv, Role::Inline, Style::Monospaced},
    {"col"sv, Role::Inline},
    {"colgroup"sv, Role::Inline},
    {"data"sv, Role::Inline},
    {"datalist"sv, Role::Hidden},
    {"dd"sv, Role::Block},
    {"del"sv, Role::Inline, Style::Struck},
    {"desc"sv, Role::Hidden, Style::None, true},
    {"details"sv, Role::Block},
    {"dfn"sv, Role::Inline, Style::Italic},
    {"dialog"sv, Role::Dialog},
    {"dir"sv, Role::List},
    {"div"sv, Role::Block},
    {"dl"sv, Role::Block},
    {"dt"sv, Role::Block},
    {"em"sv, Role::Inline, Style::Italic},
    {"embed"sv, Role::Inline},
    {"fieldset"sv, Role::Block},
    {"figcaption"sv, Role::Block},
    {"figure"sv, Role::Block},
    {"font"sv, Role::Inline},
    {"footer"sv, Role::Block},
    {"form"sv, Role::Block},
    {"frame"sv, Role::Inline},
    {"frameset"sv, Role::Block},
    {"h1"sv, Role::Heading, Style::Bold},
    {"h2"sv, Role::Heading, Style::Bold},
    {"h3"sv, Role::Heading, Style::Bold},
    {"h4"sv, Role::Heading, Style::Bold},
    {"h5"sv, Role::Heading, Style::Bold},
    {"h6"sv, Role::Heading, Style::Bold},
    {"head"sv, Role::Inline},
    {"header"sv, Role::Block},
    {"hgroup"sv, Role::Block},
    {"hr"sv, Role::Block},
    {"html"sv, Role::Inline},
    {"i"sv, Role::Inline, Style::Italic},
    {"image"sv, Role::Image},
    {"img"sv, Role::Image},
    {"input"sv, Role::Input},
    {"ins"sv, Role::Inline, Style::Underlined},
    {"kbd"sv, Role::Inline, Style::Monospaced},
    {"keygen"sv, Role::Inline},
    {"label"sv, Role::Inline},
    {"legend"sv, Role::Block},
    {"li"sv, Role::Item},
    {"link"sv, Role::Inline},
    {"listing"sv, Role::Preformatted, Style::Monospaced},
    {"main"sv, Role::Block},
    {"map"sv, Role::Inline},
    {"mark"sv, Role::Inline},
    {"marquee"sv, Role::Inline},
    {"menu"sv, Role::List},
    {"meta"sv, Role::Inline},
    {"metadata"sv, Role::Hidden, Style::None, true},
    {"meter"sv, Role::Hidden},
    {"mtable"sv, Role::Table, Style::None, true},
    {"mtd"sv, Role::Cell, Style::None, true},
    {"mtr"sv, Role::Row, Style::None, true},
    {"nav"sv, Role::Block},
    {"nobr"sv, Role::Inline},
    {"noscript"sv, Role::Inline},
    {"object"sv, Role::Inline},
    {"ol"sv, Role::NumberedList},
    {"optgroup"sv, Role::Options},
    {"option"sv, Role::Block},
    {"output"sv, Role::Inline},
    {"p"sv, Role::Block},
    {"param"sv, Role::Inline},
    {"picture"sv, Role::Inline},
    {"plaintext"sv, Role::Preformatted, Style::Monospaced},
    {"pre"sv, Role::Preformatted, Style::Monospaced},
    {"progress"sv, Role::Hidden},
    {"q"sv, Role::Inline},
    {"rb"sv, Role::Inline},
    {"rp"sv, Role::Hidden},
    {"rt"sv, Role::Reading},
    {"rtc"sv, Role::Reading},
    {"ruby"sv, Role::Ruby},
    {"s"sv, Role::Inline, Style::Struck},
    {"samp"sv, Role::Inline, Style::Monospaced},
    {"search"sv, Role::Block},
    {"section"sv, Role::Block},
    {"select"sv, Role::Inline},
    {"slot"sv, Role::Inline},
    {"small"sv, Role::Inline, Style::Smaller},
    {"source"sv, Role::Inline},
    {"span"sv, Role::Inline},
    {"strike"sv, Role::Inline, Style::Struck},
    {"strong"sv, Role::Inline, Style::Bold},
    {"sub"sv, Role::Inline, Style::Lowered},
    {"summary"sv, Role::Block},
    {"sup"sv, Role::Inline, Style::Raised},
    {"svg"sv, Role::Inline},
    {"table"sv, Role::Table},
    {"tbody"sv, Role::Block},
    {"td"sv, Role::Cell},
    {"template"sv, Role::Hidden},
    {"text"sv, Role::Block, Style::None, true},
    {"textarea"sv, Role::Preformatted, Style::Monospaced},
    {"tfoot"sv, Role::Block},
    {"th"sv, Role::Cell, Style::Bold},
    {"thead"sv, Role::Block},
    {"time"sv, Role::Inline},
    {"tr"sv, Role::Row},
    {"track"sv, Role::Inline},
    {"tt"sv, Role::Inline, Style::Monospaced},
    {"u"sv, Role::Inline, Style::Underlined},
    {"ul"sv, Role::List},
    {"var"sv, Role::Inline, Style::Italic},
    {"video"sv, Role::Hidden},
    {"wbr"sv, Role::Inline},
    {"xmp"sv, Role::Preformatted, Style::Monospaced},
};

constexpr bool comesFirst(const HtmlElement& first, const HtmlElement& second) {
    return first.name < second.name;
}
static_assert(std::is_sorted(std::begin(kElements), std::end(kElements), comesFirst));

/// Where the names of each letter begin; the last place is behind them all.
constexpr auto kStarts = [] {
    std::array<std::uint8_t, 'z' - 'a' + 2> starts{};
    for (const HtmlElement& element : kElements) {
        for (std::size_t i = static_cast<std::size_t>(element.name[0] - 'a') + 1; i < starts.size();
             ++i) {
            ++starts[i];
        }
    }
    return starts;
}();

}  // namespace

const HtmlElement* htmlElementNamed(std::string_view name) {
    if (name.empty() || name[0] < 'a' || name[0] > 'z') {
        return nullptr;
    }
    const auto letter = static_cast<std::size_t>(name[0] - 'a');
    for (std::size_t i = kStarts[letter]; i < kStarts[letter + 1]; ++i) {
        // Most of the others already differ in their last letter, which costs no call.
        const std::string_view other = kElements[i].name;
        if (other.size() == name.size() && other.back() == name.back() && other == name) {
            return &kElements[i];
        }
    }
    return nullptr;
}

}  // namespace platform
