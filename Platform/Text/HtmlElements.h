// The elements of HTML that mean something to a page's text, and how they end one another.
//
// Constant data; any thread at once.

#pragma once

#include <cstdint>
#include <string_view>

#include "Platform/Text/HtmlKinds.h"

namespace platform {

/// Elements that tags treat alike.
enum class HtmlGroup : std::uint8_t {
    None,
    Page,  ///< html and body
    Head,
    Paragraph,
    Heading,
    Item,
    Definition,  ///< dt and dd
    Anchor,
    Button,
    Form,
    Field,  ///< cannot stand in a list of choices
    Select,
    Option,
    OptionGroup,
    Ruby,
    RubyBase,     ///< what ends all parts of a ruby
    RubyReading,  ///< what ends all but a container of readings
    ReadingContainer,
    Table,
    Caption,
    Section,
    Row,
    Cell,
    Template,
    Break,
    Foreign  ///< pictures and formulas, which HTML has from XML
};

/// What HTML says of an element; a set of bits.
enum HtmlRules : std::uint32_t {
    kHtmlNoRules = 0,
    /// Has no contents and no end.
    kHtmlVoid = 1U << 0U,
    /// What it holds is no markup and no text of the page.
    kHtmlDropped = 1U << 1U,
    /// What it holds is text without tags.
    kHtmlRaw = 1U << 2U,
    /// The end of an element around it that is not special does not count.
    kHtmlSpecial = 1U << 3U,
    /// Nor does that of any other one.
    kHtmlScope = 1U << 4U,
    /// A paragraph, or an item, around it is none inside it.
    kHtmlShieldsParagraphs = 1U << 5U,
    kHtmlShieldsItems = 1U << 6U,
    /// The next item ends the one that it stands in.
    kHtmlLetsItemsEnd = 1U << 7U,
    kHtmlEndsParagraph = 1U << 8U,
    /// Goes on in the next block when the block that it stands in ends.
    kHtmlFormatting = 1U << 9U,
    /// Formatting that goes on does not reach into it, nor out of it.
    kHtmlShieldsFormatting = 1U << 10U,
    /// Is known inside pictures and formulas alone.
    kHtmlForeign = 1U << 11U,
    /// Is known there, too.
    kHtmlAlsoForeign = 1U << 12U,
    /// Holds HTML inside a picture or formula.
    kHtmlHoldsHtml = 1U << 13U,
    /// Ends the picture or formula that it stands in.
    kHtmlEndsForeign = 1U << 14U
};

struct HtmlElement {
    std::string_view name;
    const HtmlKind* kind;
    HtmlGroup group;
    /// Of HtmlRules.
    std::uint32_t rules;
};

/// Returns what is known of an element by its name in lower case; null for one that is
/// not known. It lives as long as the code.
[[nodiscard]] const HtmlElement* htmlElementNamed(std::string_view name);

}  // namespace platform
