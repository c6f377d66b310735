#include "Platform/Text/HtmlElements.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform {
namespace {

using namespace std::string_view_literals;
using Role = HtmlRole;
using Style = HtmlStyle;
using Group = HtmlGroup;

constexpr std::uint32_t kVoid = kHtmlVoid;
constexpr std::uint32_t kDropped = kHtmlDropped;
constexpr std::uint32_t kRaw = kHtmlRaw;
constexpr std::uint32_t kSpecial = kHtmlSpecial;
constexpr std::uint32_t kEnclosed = kHtmlSpecial | kHtmlScope;
constexpr std::uint32_t kEndsParagraph = kHtmlEndsParagraph;
constexpr std::uint32_t kBlock = kHtmlSpecial | kHtmlEndsParagraph;
constexpr std::uint32_t kShieldsParagraphs = kHtmlShieldsParagraphs;
constexpr std::uint32_t kShieldsItems = kHtmlShieldsItems;
constexpr std::uint32_t kLetsItemsEnd = kHtmlLetsItemsEnd;
constexpr std::uint32_t kFormatting = kHtmlFormatting;
constexpr std::uint32_t kShieldsFormatting = kHtmlShieldsFormatting;
constexpr std::uint32_t kForeign = kHtmlForeign;
constexpr std::uint32_t kAlsoForeign = kHtmlAlsoForeign;
constexpr std::uint32_t kHoldsHtml = kHtmlHoldsHtml;
constexpr std::uint32_t kEndsForeign = kHtmlEndsForeign;

struct Row {
    std::string_view name;
    HtmlRole role;
    HtmlStyle style = HtmlStyle::None;
    HtmlGroup group = HtmlGroup::None;
    std::uint32_t rules = kHtmlNoRules;
};
/// In the order of their names.
constexpr Row kRows[] = {
    {"a"sv, Role::Inline, Style::Link, Group::Anchor, kFormatting | kAlsoForeign},
    {"abbr"sv, Role::Inline},
    {"acronym"sv, Role::Inline},
    {"address"sv, Role::Block, Style::Italic, Group::None, kBlock | kLetsItemsEnd},
    {"annotation"sv, Role::Hidden, Style::None, Group::None, kForeign},
    {"annotation-xml"sv, Role::Hidden, Style::None, Group::None, kForeign | kHoldsHtml},
    {"applet"sv, Role::Inline, Style::None, Group::None, kEnclosed | kShieldsFormatting},
    {"area"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"article"sv, Role::Block, Style::None, Group::None, kBlock},
    {"aside"sv, Role::Block, Style::None, Group::None, kBlock},
    {"audio"sv, Role::Hidden},
    {"b"sv, Role::Inline, Style::Bold, Group::None, kFormatting | kEndsForeign},
    {"base"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"basefont"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"bdi"sv, Role::Inline},
    {"bdo"sv, Role::Inline},
    {"bgsound"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"big"sv, Role::Inline, Style::Larger, Group::None, kFormatting | kEndsForeign},
    {"blockquote"sv, Role::Block, Style::None, Group::None, kBlock | kEndsForeign},
    {"body"sv, Role::Page, Style::None, Group::Page, kEnclosed | kEndsForeign},
    {"br"sv, Role::Break, Style::None, Group::Break, kVoid | kEndsForeign},
    {"button"sv, Role::Control, Style::None, Group::Button, kSpecial | kShieldsParagraphs},
    {"canvas"sv, Role::Hidden},
    {"caption"sv, Role::Block, Style::None, Group::Caption, kEnclosed | kShieldsFormatting},
    {"center"sv, Role::Block, Style::Centered, Group::None, kBlock | kEndsForeign},
    {"cite"sv, Role::Inline, Style::Italic},
    {"code"sv, Role::Inline, Style::Monospaced, Group::None, kFormatting | kEndsForeign},
    {"col"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"colgroup"sv, Role::Inline, Style::None, Group::Caption, kSpecial},
    {"data"sv, Role::Inline},
    {"datalist"sv, Role::Hidden},
    {"dd"sv, Role::Block, Style::None, Group::Definition, kBlock | kEndsForeign},
    {"del"sv, Role::Inline, Style::Struck},
    {"desc"sv, Role::Hidden, Style::None, Group::None, kForeign | kHoldsHtml},
    {"details"sv, Role::Block, Style::None, Group::None, kBlock},
    {"dfn"sv, Role::Inline, Style::Italic},
    {"dialog"sv, Role::Dialog, Style::None, Group::None, kBlock},
    {"dir"sv, Role::List, Style::None, Group::None, kBlock},
    {"div"sv, Role::Block, Style::None, Group::None, kBlock | kLetsItemsEnd | kEndsForeign},
    {"dl"sv, Role::Block, Style::None, Group::None, kBlock | kEndsForeign},
    {"dt"sv, Role::Block, Style::None, Group::Definition, kBlock | kEndsForeign},
    {"em"sv, Role::Inline, Style::Italic, Group::None, kFormatting | kEndsForeign},
    {"embed"sv, Role::Inline, Style::None, Group::None, kVoid | kEndsForeign},
    {"fieldset"sv, Role::Block, Style::None, Group::None, kBlock},
    {"figcaption"sv, Role::Block, Style::None, Group::None, kBlock},
    {"figure"sv, Role::Block, Style::None, Group::None, kBlock},
    {"font"sv, Role::Inline, Style::None, Group::None, kFormatting},
    {"footer"sv, Role::Block, Style::None, Group::None, kBlock},
    {"foreignobject"sv, Role::Inline, Style::None, Group::None, kForeign | kHoldsHtml},
    {"form"sv, Role::Block, Style::None, Group::Form, kBlock},
    {"frame"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"frameset"sv, Role::Block, Style::None, Group::None, kSpecial},
    {"h1"sv, Role::Heading, Style::Bold, Group::Heading, kBlock | kEndsForeign},
    {"h2"sv, Role::Heading, Style::Bold, Group::Heading, kBlock | kEndsForeign},
    {"h3"sv, Role::Heading, Style::Bold, Group::Heading, kBlock | kEndsForeign},
    {"h4"sv, Role::Heading, Style::Bold, Group::Heading, kBlock | kEndsForeign},
    {"h5"sv, Role::Heading, Style::Bold, Group::Heading, kBlock | kEndsForeign},
    {"h6"sv, Role::Heading, Style::Bold, Group::Heading, kBlock | kEndsForeign},
    {"head"sv, Role::Inline, Style::None, Group::Head, kSpecial | kEndsForeign},
    {"header"sv, Role::Block, Style::None, Group::None, kBlock},
    {"hgroup"sv, Role::Block, Style::None, Group::None, kBlock},
    {"hr"sv, Role::Block, Style::None, Group::None, kVoid | kEndsParagraph | kEndsForeign},
    {"html"sv, Role::Page, Style::None, Group::Page, kEnclosed},
    {"i"sv, Role::Inline, Style::Italic, Group::None, kFormatting | kEndsForeign},
    {"iframe"sv, Role::Inline, Style::None, Group::None, kDropped | kSpecial},
    {"image"sv, Role::Image, Style::None, Group::None, kVoid},
    {"img"sv, Role::Image, Style::None, Group::None, kVoid | kEndsForeign},
    {"input"sv, Role::Input, Style::None, Group::Field, kVoid},
    {"ins"sv, Role::Inline, Style::Underlined},
    {"kbd"sv, Role::Inline, Style::Monospaced},
    {"keygen"sv, Role::Inline, Style::None, Group::Field, kVoid},
    {"label"sv, Role::Inline},
    {"legend"sv, Role::Block},
    {"li"sv, Role::Item, Style::None, Group::Item, kBlock | kEndsForeign},
    {"link"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"listing"sv, Role::Preformatted, Style::Monospaced, Group::None, kBlock | kEndsForeign},
    {"main"sv, Role::Block, Style::None, Group::None, kBlock},
    {"map"sv, Role::Inline},
    {"mark"sv, Role::Inline},
    {"marquee"sv, Role::Inline, Style::None, Group::None, kEnclosed | kShieldsFormatting},
    {"math"sv, Role::Inline, Style::None, Group::Foreign},
    {"menu"sv, Role::List, Style::None, Group::None, kBlock | kEndsForeign},
    {"meta"sv, Role::Inline, Style::None, Group::None, kVoid | kEndsForeign},
    {"metadata"sv, Role::Hidden, Style::None, Group::None, kForeign},
    {"meter"sv, Role::Hidden},
    {"mi"sv, Role::Inline, Style::None, Group::None, kForeign | kHoldsHtml},
    {"mn"sv, Role::Inline, Style::None, Group::None, kForeign | kHoldsHtml},
    {"mo"sv, Role::Inline, Style::None, Group::None, kForeign | kHoldsHtml},
    {"ms"sv, Role::Inline, Style::None, Group::None, kForeign | kHoldsHtml},
    {"mtable"sv, Role::Table, Style::None, Group::None, kForeign},
    {"mtd"sv, Role::Cell, Style::None, Group::None, kForeign},
    {"mtext"sv, Role::Inline, Style::None, Group::None, kForeign | kHoldsHtml},
    {"mtr"sv, Role::Row, Style::None, Group::None, kForeign},
    {"nav"sv, Role::Block, Style::None, Group::None, kBlock},
    {"nobr"sv, Role::Inline, Style::None, Group::None, kEndsForeign},
    {"noembed"sv, Role::Inline, Style::None, Group::None, kDropped | kSpecial},
    {"noframes"sv, Role::Inline, Style::None, Group::None, kDropped | kSpecial},
    {"noscript"sv, Role::Inline, Style::None, Group::None, kSpecial},
    {"object"sv, Role::Inline, Style::None, Group::None, kEnclosed | kShieldsFormatting},
    {"ol"sv, Role::NumberedList, Style::None, Group::None,
     kSpecial | kShieldsItems | kEndsParagraph | kEndsForeign},
    {"optgroup"sv, Role::Options, Style::None, Group::OptionGroup},
    {"option"sv, Role::Block, Style::None, Group::Option},
    {"output"sv, Role::Inline},
    {"p"sv, Role::Block, Style::None, Group::Paragraph, kBlock | kLetsItemsEnd | kEndsForeign},
    {"param"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"picture"sv, Role::Inline},
    {"plaintext"sv, Role::Preformatted, Style::Monospaced, Group::None, kRaw | kBlock},
    {"pre"sv, Role::Preformatted, Style::Monospaced, Group::None, kBlock | kEndsForeign},
    {"progress"sv, Role::Hidden},
    {"q"sv, Role::Inline},
    {"rb"sv, Role::Inline, Style::None, Group::RubyBase},
    {"rp"sv, Role::Hidden, Style::None, Group::RubyReading},
    {"rt"sv, Role::Reading, Style::None, Group::RubyReading},
    {"rtc"sv, Role::Reading, Style::None, Group::ReadingContainer},
    {"ruby"sv, Role::Ruby, Style::None, Group::Ruby, kEndsForeign},
    {"s"sv, Role::Inline, Style::Struck, Group::None, kFormatting | kEndsForeign},
    {"samp"sv, Role::Inline, Style::Monospaced},
    {"script"sv, Role::Hidden, Style::None, Group::None, kDropped | kSpecial | kAlsoForeign},
    {"search"sv, Role::Block, Style::None, Group::None, kBlock},
    {"section"sv, Role::Block, Style::None, Group::None, kBlock},
    {"select"sv, Role::Inline, Style::None, Group::Select, kEnclosed},
    {"slot"sv, Role::Inline},
    {"small"sv, Role::Inline, Style::Smaller, Group::None, kFormatting | kEndsForeign},
    {"source"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"span"sv, Role::Inline, Style::None, Group::None, kEndsForeign},
    {"strike"sv, Role::Inline, Style::Struck, Group::None, kFormatting | kEndsForeign},
    {"strong"sv, Role::Inline, Style::Bold, Group::None, kFormatting | kEndsForeign},
    {"style"sv, Role::Hidden, Style::None, Group::None, kDropped | kSpecial | kAlsoForeign},
    {"sub"sv, Role::Inline, Style::Lowered, Group::None, kEndsForeign},
    {"summary"sv, Role::Block, Style::None, Group::None, kBlock},
    {"sup"sv, Role::Inline, Style::Raised, Group::None, kEndsForeign},
    {"svg"sv, Role::Inline, Style::None, Group::Foreign},
    {"table"sv, Role::Table, Style::None, Group::Table, kEnclosed | kEndsParagraph | kEndsForeign},
    {"tbody"sv, Role::Block, Style::None, Group::Section, kSpecial},
    {"td"sv, Role::Cell, Style::None, Group::Cell, kEnclosed | kShieldsFormatting},
    {"template"sv, Role::Hidden, Style::None, Group::Template, kEnclosed | kShieldsFormatting},
    {"text"sv, Role::Block, Style::None, Group::None, kForeign},
    {"textarea"sv, Role::Preformatted, Style::Monospaced, Group::Field, kRaw | kSpecial},
    {"tfoot"sv, Role::Block, Style::None, Group::Section, kSpecial},
    {"th"sv, Role::Cell, Style::Bold, Group::Cell, kEnclosed | kShieldsFormatting},
    {"thead"sv, Role::Block, Style::None, Group::Section, kSpecial},
    {"time"sv, Role::Inline},
    {"title"sv, Role::Hidden, Style::None, Group::None,
     kDropped | kSpecial | kAlsoForeign | kHoldsHtml},
    {"tr"sv, Role::Row, Style::None, Group::Row, kSpecial},
    {"track"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"tt"sv, Role::Inline, Style::Monospaced, Group::None, kFormatting | kEndsForeign},
    {"u"sv, Role::Inline, Style::Underlined, Group::None, kFormatting | kEndsForeign},
    {"ul"sv, Role::List, Style::None, Group::None,
     kSpecial | kShieldsItems | kEndsParagraph | kEndsForeign},
    {"var"sv, Role::Inline, Style::Italic, Group::None, kEndsForeign},
    {"video"sv, Role::Hidden},
    {"wbr"sv, Role::Inline, Style::None, Group::None, kVoid},
    {"xmp"sv, Role::Preformatted, Style::Monospaced, Group::None, kRaw | kBlock},
};

constexpr auto kElements = [] {
    std::array<HtmlElement, std::size(kRows)> elements{};
    for (std::size_t i = 0; i < elements.size(); ++i) {
        const Row& row = kRows[i];
        const bool isHeading = row.role == Role::Heading;
        const auto level = static_cast<std::uint8_t>(isHeading ? row.name[1] - '0' : 0);
        elements[i] = {row.name, htmlKindOf(row.role, row.style, level), row.group, row.rules};
    }
    return elements;
}();

constexpr bool comesFirst(const HtmlElement& first, const HtmlElement& second) {
    return first.name < second.name;
}
static_assert(std::is_sorted(kElements.begin(), kElements.end(), comesFirst));

constexpr std::size_t kSlots = 512;
constexpr std::uint8_t kFree = 0xFF;
static_assert(std::size(kRows) < kFree);

/// Where a name is looked for first. Requires: it is not empty.
constexpr std::size_t slotOf(std::string_view name) {
    const auto byteAt = [&](std::size_t i) {
        return static_cast<std::size_t>(static_cast<unsigned char>(name[i]));
    };
    return (byteAt(0) + byteAt(name.size() - 1) + byteAt(name.size() / 2) * 18 + name.size() * 29) %
           kSlots;
}

/// The place of each element, in its slot or in the next that was free.
constexpr auto kPlaces = [] {
    std::array<std::uint8_t, kSlots> places{};
    places.fill(kFree);
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        std::size_t slot = slotOf(kRows[i].name);
        while (places[slot] != kFree) {
            slot = (slot + 1) % kSlots;
        }
        places[slot] = static_cast<std::uint8_t>(i);
    }
    return places;
}();

}  // namespace

const HtmlElement* htmlElementNamed(std::string_view name) {
    if (name.empty()) {
        return nullptr;
    }
    for (std::size_t slot = slotOf(name); kPlaces[slot] != kFree; slot = (slot + 1) % kSlots) {
        const HtmlElement& element = kElements[kPlaces[slot]];
        if (element.name == name) {
            return &element;
        }
    }
    return nullptr;
}

}  // namespace platform
