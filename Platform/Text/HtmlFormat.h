// How text of a page looks, in numbers that are quick to compare.
//
// Plain values and a pure function; any thread at once.

#pragma once

#include <compare>
#include <cstdint>

#include "Platform/Text/HtmlKinds.h"
#include "Platform/Text/HtmlValues.h"
#include "Platform/Text/ParagraphStyle.h"

namespace platform {

/// What the characters of a run have in common.
struct HtmlCharacterFormat {
    /// In hundredths of a point.
    std::uint16_t size = 1200;
    /// Numbers that HtmlAttributes gives; 0 for none.
    std::uint16_t link = 0;
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruck = false;
    bool isMonospaced = false;
    /// 1 for raised, -1 for lowered.
    std::int8_t superscript = 0;

    friend auto operator<=>(const HtmlCharacterFormat&, const HtmlCharacterFormat&) = default;
};

/// What a whole block has.
struct HtmlParagraphFormat {
    TextAlignment alignment = TextAlignment::Natural;
    WritingDirection direction = WritingDirection::Natural;
    /// 0 for text, 1 to 6 for headings.
    std::uint8_t headerLevel = 0;
    /// The list that it is an item of, a number that HtmlAttributes gives; 0 for none.
    std::uint16_t list = 0;

    friend auto operator<=>(const HtmlParagraphFormat&, const HtmlParagraphFormat&) = default;
};

/// Both.
struct HtmlLook {
    HtmlCharacterFormat character;
    HtmlParagraphFormat paragraph;

    friend auto operator<=>(const HtmlLook&, const HtmlLook&) = default;
};

/// Changes `look` to that of an element inside, which is laid out as `role` says.
void applyHtmlElement(const HtmlKind& kind, HtmlRole role, const HtmlValues& values,
                      HtmlLook& look);

}  // namespace platform
