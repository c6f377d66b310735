#include "Platform/Text/HtmlFormat.h"

#include <algorithm>

namespace platform {
namespace {

// What browsers make of the size of text; sizes stay within what can be read.
constexpr unsigned kTextSize = 1200;
constexpr unsigned kHeadingSizes[] = {2400, 1800, 1404, 1200, 996, 804};

std::uint16_t scaled(std::uint16_t size, unsigned numerator, unsigned denominator) {
    constexpr unsigned kLeast = 600;
    constexpr unsigned kMost = 7200;
    return static_cast<std::uint16_t>(std::clamp(size * numerator / denominator, kLeast, kMost));
}

void setStyle(HtmlLook& look, HtmlStyle style) {
    HtmlCharacterFormat& character = look.character;
    switch (style) {
        case HtmlStyle::None:
        case HtmlStyle::Link:
            break;
        case HtmlStyle::Bold:
            character.isBold = true;
            break;
        case HtmlStyle::Italic:
            character.isItalic = true;
            break;
        case HtmlStyle::Underlined:
            character.isUnderlined = true;
            break;
        case HtmlStyle::Struck:
            character.isStruck = true;
            break;
        case HtmlStyle::Monospaced:
            character.isMonospaced = true;
            break;
        case HtmlStyle::Raised:
            character.superscript = 1;
            break;
        case HtmlStyle::Lowered:
            character.superscript = -1;
            break;
        case HtmlStyle::Smaller:
            character.size = scaled(character.size, 5, 6);
            break;
        case HtmlStyle::Larger:
            character.size = scaled(character.size, 6, 5);
            break;
        case HtmlStyle::Centered:
            look.paragraph.alignment = TextAlignment::Center;
            break;
    }
}

void setAlignment(HtmlParagraphFormat& paragraph, const HtmlValues& values) {
    struct Row {
        std::string_view value;
        TextAlignment alignment;
    };
    constexpr Row kRows[] = {{"left", TextAlignment::Left},
                             {"right", TextAlignment::Right},
                             {"center", TextAlignment::Center},
                             {"justify", TextAlignment::Justified}};
    for (const Row& row : kRows) {
        if (values.is("align", row.value)) {
            paragraph.alignment = row.alignment;
        }
    }
}

}  // namespace

void applyHtmlElement(const HtmlKind& kind, HtmlRole role, const HtmlValues& values,
                      HtmlLook& look) {
    HtmlParagraphFormat& paragraph = look.paragraph;
    if (kind.level != 0) {
        paragraph.headerLevel = kind.level;
        look.character.size = scaled(look.character.size, kHeadingSizes[kind.level - 1], kTextSize);
    }
    setStyle(look, kind.style);
    if (values.isEmpty() || role == HtmlRole::Inline || role == HtmlRole::Image) {
        return;
    }
    setAlignment(paragraph, values);
    if (values.is("dir", "rtl")) {
        paragraph.direction = WritingDirection::RightToLeft;
    } else if (values.is("dir", "ltr")) {
        paragraph.direction = WritingDirection::LeftToRight;
    }
}

}  // namespace platform
