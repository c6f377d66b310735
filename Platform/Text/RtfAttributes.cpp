#include "Platform/Text/RtfAttributes.h"

#include <cstdlib>
#include <utility>

#include "Platform/Foundation/URLReference.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/FontTraits.h"

namespace platform {
namespace {

/// The platform's font for a text that names none.
constexpr char kDefaultFont[] = "Helvetica";

constexpr double kTwipsInPoint = 20;

double points(std::int32_t twips) {
    return twips / kTwipsInPoint;
}

template <class Type, class... Arguments>
Value made(Arguments&&... arguments) {
    return Value(std::static_pointer_cast<const Object>(
        std::make_shared<const Type>(std::forward<Arguments>(arguments)...)));
}

ParagraphLayout layoutOf(const RtfParagraphFormat& format) {
    ParagraphLayout layout;
    layout.alignment = format.alignment;
    layout.baseWritingDirection = format.direction;
    layout.headIndent = points(format.left);
    layout.firstLineHeadIndent = layout.headIndent + points(format.firstLine);
    // The platform counts from the other margin, in the direction of the line.
    layout.tailIndent = format.right == 0 ? 0 : -points(format.right);
    layout.paragraphSpacingBefore = points(format.before);
    layout.paragraphSpacing = points(format.after);
    constexpr double kSingleSpacing = 240;
    if (format.isMultiple && format.lineSpacing > 0) {
        layout.lineHeightMultiple = format.lineSpacing / kSingleSpacing;
    } else {
        // Below 0 the height is exact.
        layout.minimumLineHeight = points(std::abs(format.lineSpacing));
        layout.maximumLineHeight = format.lineSpacing < 0 ? layout.minimumLineHeight : 0;
    }
    return layout;
}

/// Entries of a dictionary under construction.
class Entries {
public:
    void add(const char* name, Value value) {
        if (!value.isNull()) {
            entries_.emplace_back(name, std::move(value));
        }
    }
    void addNumber(const char* name, int number) {
        if (number != 0) {
            entries_.emplace_back(name, number);
        }
    }
    [[nodiscard]] Attributes finish() {
        return entries_.empty() ? nullptr : std::make_shared<const Dictionary>(std::move(entries_));
    }

private:
    std::vector<Dictionary::Entry> entries_;
};

}  // namespace

RtfAttributes::RtfAttributes(const RtfFonts& fonts, const RtfColors& colors, const RtfTabs& tabs)
    : fonts_(fonts), colors_(colors), tabs_(tabs) {
    // Index 0 is none, or the default.
    paragraphIndices_.emplace(RtfParagraphFormat(), std::uint16_t{0});
    paragraphStyles_.emplace_back();
    links_.emplace_back();
    attachments_.emplace_back();
    attachments_.push_back(made<TextAttachment>(nullptr));
    sets_.emplace_back();
}

std::uint16_t RtfAttributes::addLink(std::string url) {
    if (links_.size() > 0xFFFF) {
        return 0;
    }
    links_.push_back(made<URLReference>(std::move(url)));
    return static_cast<std::uint16_t>(links_.size() - 1);
}

std::uint16_t RtfAttributes::addAttachment(std::shared_ptr<const TextAttachment> attachment) {
    if (attachments_.size() == kMostAttachments) {
        return kFilelessAttachment;
    }
    attachments_.emplace_back(std::static_pointer_cast<const Object>(std::move(attachment)));
    return static_cast<std::uint16_t>(attachments_.size() - 1);
}

std::uint16_t RtfAttributes::indexOf(const RtfParagraphFormat& paragraph) {
    if (paragraph == paragraph_) {
        return paragraphIndex_;
    }
    const auto known = paragraphIndices_.find(paragraph);
    if (known == paragraphIndices_.end() && paragraphStyles_.size() == kMostParagraphs) {
        return 0;
    }
    const auto [place, isNew] = paragraphIndices_.try_emplace(
        paragraph, static_cast<std::uint16_t>(paragraphStyles_.size()));
    if (isNew) {
        paragraphStyles_.push_back(paragraphStyleOf(paragraph));
    }
    paragraph_ = paragraph;
    paragraphIndex_ = place->second;
    return paragraphIndex_;
}

std::uint32_t RtfAttributes::indexOf(const RtfCharacterFormat& character, std::uint16_t paragraph) {
    const std::size_t mixed = character.font * 7U + character.halfPoints * 3U + character.color +
                              (character.isBold ? 31U : 0U) + (character.isItalic ? 17U : 0U) +
                              paragraph;
    Recent& recent = recent_[mixed % kMostRecent];
    const Look look{character, paragraph};
    if (!recent.isSet || recent.look != look) {
        recent = {look, findIndex(look), true};
    }
    return recent.index;
}

std::uint32_t RtfAttributes::findIndex(Look look) {
    if (sets_.size() >= kMostSets && !indices_.contains(look)) {
        const std::uint16_t attachment = look.character.attachment;
        look = {};
        look.character.attachment = attachment;
    }
    const auto [place, isNew] = indices_.try_emplace(look, sets_.size());
    if (isNew) {
        sets_.push_back(attributesOf(look));
    }
    return place->second;
}

Attributes RtfAttributes::attributesOf(const Look& look) {
    const RtfCharacterFormat& character = look.character;
    Entries entries;
    entries.add(kFontAttributeName, fontOf(character));
    entries.add(kForegroundColorAttributeName, colorAt(character.color));
    entries.add(kBackgroundColorAttributeName, colorAt(character.backgroundColor));
    entries.addNumber(kUnderlineStyleAttributeName, character.underline);
    entries.addNumber(kStrikethroughStyleAttributeName, character.strikethrough);
    entries.addNumber(kSuperscriptAttributeName, character.superscript);
    entries.add(kParagraphStyleAttributeName, paragraphStyles_[look.paragraph]);
    entries.add(kLinkAttributeName, links_[character.link]);
    entries.add(kAttachmentAttributeName, attachments_[character.attachment]);
    return entries.finish();
}

Value RtfAttributes::fontOf(const RtfCharacterFormat& character) {
    const FontLook look{character.font, character.halfPoints,
                        static_cast<std::uint16_t>(character.isBold),
                        static_cast<std::uint16_t>(character.isItalic)};
    const auto [place, isNew] = fontValues_.try_emplace(look);
    if (isNew) {
        const std::u16string_view name = fonts_.nameAt(character.font);
        place->second =
            made<Font>(fontNameWithTraits(name.empty() ? kDefaultFont : utf8FromUtf16(name),
                                          {character.isBold, character.isItalic}),
                       character.halfPoints / 2.0);
    }
    return place->second;
}

Value RtfAttributes::paragraphStyleOf(const RtfParagraphFormat& paragraph) const {
    ParagraphLayout layout = layoutOf(paragraph);
    layout.tabStops = tabs_.at(paragraph.tabs);
    return made<ParagraphStyle>(std::move(layout));
}

Value RtfAttributes::colorAt(std::uint16_t index) const {
    if (index == 0) {
        return {};
    }
    const Rgb rgb = colors_.at(index);
    return made<Color>(ColorSpace::CalibratedRgb,
                       std::vector<double>{rgb.red, rgb.green, rgb.blue});
}

}  // namespace platform
