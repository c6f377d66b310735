#include "Platform/Text/RtfStyleTables.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Color.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/FontTraits.h"

namespace platform {
namespace {

constexpr std::size_t kMostTabs = 32;

/// What readers of RTF take for a length, in twentieths of a point.
constexpr double kLongest = 31'680;

/// The font of text without one, as the platform has it.
constexpr std::string_view kDefaultFont = "Helvetica";
constexpr double kDefaultSize = 12;

void appendWord(std::string& words, std::string_view word, std::int64_t number) {
    words.append(word).append(std::to_string(number));
}

/// A length in points as RTF has it; nothing when it is none.
std::optional<std::int64_t> twips(double points) {
    if (!std::isfinite(points)) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(std::lround(std::clamp(points * 20, -kLongest, kLongest)));
}

/// Appends a length unless it is zero.
void appendLength(std::string& words, std::string_view word, double points) {
    if (const auto length = twips(points); length && *length != 0) {
        appendWord(words, word, *length);
    }
}

template <class Object>
std::shared_ptr<const Object> objectIn(const Value& value) {
    return std::dynamic_pointer_cast<const Object>(value.object());
}

/// The name without what would end it in a font table.
std::string fontTableName(std::string_view name) {
    std::u16string text = utf16FromUtf8Lossy(name);
    std::erase_if(text, [](char16_t unit) { return unit < 0x20 || unit == u';'; });
    std::string entry;
    appendRtfText(entry, text);
    return entry;
}

std::string_view alignmentWord(TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::Left:
            return "\\ql";
        case TextAlignment::Right:
            return "\\qr";
        case TextAlignment::Center:
            return "\\qc";
        case TextAlignment::Justified:
            return "\\qj";
        case TextAlignment::Natural:
            break;
    }
    return "";
}

std::string_view tabKindWord(TextAlignment alignment) {
    switch (alignment) {
        case TextAlignment::Right:
            return "\\tqr";
        case TextAlignment::Center:
            return "\\tqc";
        default:
            return "";
    }
}

void appendTabs(std::string& words, const ParagraphLayout& layout) {
    if (!layout.tabStops) {
        return;
    }
    for (const TextTab& tab :
         std::span(*layout.tabStops).first(std::min(layout.tabStops->size(), kMostTabs))) {
        if (const auto place = twips(tab.location)) {
            words += tabKindWord(tab.alignment);
            appendWord(words, "\\tx", *place);
        }
    }
}

/// The lines' height: in RTF a multiple, a least or (negative) an exact one.
void appendLineHeight(std::string& words, const ParagraphLayout& layout) {
    if (layout.lineHeightMultiple > 0 && std::isfinite(layout.lineHeightMultiple)) {
        constexpr double kSingle = 240;
        const double height = std::min(layout.lineHeightMultiple * kSingle, kLongest);
        appendWord(words, "\\sl", std::lround(height));
        words += "\\slmult1";
    } else if (layout.minimumLineHeight > 0) {
        const bool isExact = layout.minimumLineHeight == layout.maximumLineHeight;
        appendLength(words, "\\sl", isExact ? -layout.minimumLineHeight : layout.minimumLineHeight);
    }
}

std::string newParagraphWords(const Attributes& attributes) {
    std::string words = "\\pard";
    const auto style = attributes
                           ? objectIn<ParagraphStyle>((*attributes)[kParagraphStyleAttributeName])
                           : nullptr;
    if (style == nullptr) {
        return words;
    }
    const ParagraphLayout& layout = style->layout();
    appendTabs(words, layout);
    appendLength(words, "\\li", layout.headIndent);
    appendLength(words, "\\fi", layout.firstLineHeadIndent - layout.headIndent);
    // Above zero it counts from the leading margin, for which RTF has no word.
    appendLength(words, "\\ri", std::max(-layout.tailIndent, 0.0));
    appendLength(words, "\\sb", layout.paragraphSpacingBefore);
    appendLength(words, "\\sa", layout.paragraphSpacing);
    appendLineHeight(words, layout);
    words += alignmentWord(layout.alignment);
    if (layout.baseWritingDirection != WritingDirection::Natural) {
        words +=
            layout.baseWritingDirection == WritingDirection::RightToLeft ? "\\rtlpar" : "\\ltrpar";
    }
    return words;
}

std::string_view underlineWord(std::int64_t style) {
    constexpr std::int64_t kThick = 2;
    constexpr std::int64_t kDouble = 9;
    constexpr std::int64_t kKind = 0xF;
    switch (style & kKind) {
        case 0:
            return "";
        case kThick:
            return "\\ulth";
        case kDouble:
            return "\\uldb";
        default:
            return "\\ul";
    }
}

}  // namespace

void appendRtfText(std::string& rtf, std::u16string_view text) {
    for (const char16_t unit : text) {
        if (unit == u'\\' || unit == u'{' || unit == u'}') {
            rtf += '\\';
            rtf += static_cast<char>(unit);
        } else if (unit >= 0x20 && unit < 0x7F) {
            rtf += static_cast<char>(unit);
        } else if (unit == u'\t') {
            rtf += "\\tab ";
        } else if (unit == u'\u2028') {
            rtf += "\\line ";
        } else {
            // The question mark behind is for readers that know no Unicode. As it is, some readers
            // that do would take the blank behind it for its end.
            appendWord(rtf, "\\u", static_cast<std::int16_t>(unit));
            rtf += "\\'3f";
        }
    }
}

const std::string& RtfStyleTables::wordsFor(const Attributes& attributes) {
    const auto [at, isNew] = words_.try_emplace(attributes.get());
    if (isNew) {
        at->second = newWordsFor(attributes ? *attributes : Dictionary());
    }
    return at->second;
}

const std::string& RtfStyleTables::paragraphWordsFor(const Attributes& attributes) {
    const auto [at, isNew] = paragraphWords_.try_emplace(attributes.get());
    if (isNew) {
        at->second = newParagraphWords(attributes);
    }
    return at->second;
}

std::string RtfStyleTables::newWordsFor(const Dictionary& attributes) {
    std::string words = "\\plain";
    appendFont(words, attributes);
    words += underlineWord(attributes[kUnderlineStyleAttributeName].integerValue().value_or(0));
    if (attributes[kStrikethroughStyleAttributeName].integerValue().value_or(0) != 0) {
        words += "\\strike";
    }
    const auto raised = attributes[kSuperscriptAttributeName].integerValue().value_or(0);
    words += raised > 0 ? "\\super" : raised < 0 ? "\\sub" : "";
    appendColor(words, "\\cf", attributes[kForegroundColorAttributeName]);
    appendColor(words, "\\cb", attributes[kBackgroundColorAttributeName]);
    return words + ' ';
}

void RtfStyleTables::appendFont(std::string& words, const Dictionary& attributes) {
    const auto font = objectIn<Font>(attributes[kFontAttributeName]);
    const std::string name(font != nullptr ? std::string_view(font->fontName()) : kDefaultFont);
    const auto [at, isNew] = fonts_.try_emplace(name, fontNames_.size());
    if (isNew) {
        fontNames_.push_back(fontTableName(name));
    }
    appendWord(words, "\\f", static_cast<std::int64_t>(at->second));
    const FontTraits traits = fontTraitsOf(name);
    words += traits.isBold ? "\\b" : "";
    words += traits.isItalic ? "\\i" : "";
    const double size = font != nullptr && font->pointSize() > 0 ? font->pointSize() : kDefaultSize;
    constexpr double kLargest = 16'000;
    // Half points.
    appendWord(words, "\\fs", std::max(std::lround(std::min(size, kLargest) * 2), 1L));
}

/// Appends the word for a colour that has a place on screens.
void RtfStyleTables::appendColor(std::string& words, std::string_view word, const Value& value) {
    const auto color = objectIn<Color>(value);
    const auto rgb = color != nullptr ? color->rgb() : std::nullopt;
    if (!rgb) {
        return;
    }
    const auto part = [](double component) {
        constexpr double kFull = 255;
        return component > 0 ? std::lround(std::min(component, 1.0) * kFull) : 0;
    };
    std::string entry;
    appendWord(entry, "\\red", part(rgb->red));
    appendWord(entry, "\\green", part(rgb->green));
    appendWord(entry, "\\blue", part(rgb->blue));
    // The first place of the table is that of the default colour.
    const auto [at, isNew] = colors_.try_emplace(entry, colorEntries_.size() + 1);
    if (isNew) {
        colorEntries_.push_back(entry);
    }
    appendWord(words, word, static_cast<std::int64_t>(at->second));
}

std::string RtfStyleTables::tables() const {
    std::string rtf = "{\\fonttbl";
    for (std::size_t i = 0; i < fontNames_.size(); i++) {
        appendWord(rtf, "{\\f", static_cast<std::int64_t>(i));
        rtf.append("\\fnil\\fcharset0 ").append(fontNames_[i]).append(";}");
    }
    rtf += "}\n{\\colortbl;";
    for (const std::string& entry : colorEntries_) {
        rtf.append(entry).append(";");
    }
    return rtf + "}\n";
}

}  // namespace platform
