#include "Platform/Text/HtmlAttributes.h"

#include <memory>
#include <utility>

#include "Platform/Foundation/URLReference.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/FontTraits.h"

namespace platform {
namespace {

// The platform's fonts for pages that name none.
constexpr char kFont[] = "Times-Roman";
constexpr char kMonospacedFont[] = "Courier";

template <class Type, class... Arguments>
Value made(Arguments&&... arguments) {
    return Value(std::static_pointer_cast<const Object>(
        std::make_shared<const Type>(std::forward<Arguments>(arguments)...)));
}

}  // namespace

HtmlAttributes::HtmlAttributes() {
    // Index 0 is none.
    links_.emplace_back();
    lists_.emplace_back();
    sets_.emplace_back();
}

std::uint16_t HtmlAttributes::addLink(std::string_view url) {
    const auto known = linkNumbers_.find(url);
    if (known != linkNumbers_.end()) {
        return known->second;
    }
    if (links_.size() > 0xFFFF) {
        return 0;
    }
    const auto number = static_cast<std::uint16_t>(links_.size());
    links_.push_back(made<URLReference>(std::string(url)));
    linkNumbers_.emplace(url, number);
    return number;
}

std::uint16_t HtmlAttributes::addList(std::uint16_t outer, const std::string& markerFormat,
                                      std::int32_t firstNumber) {
    const ListKey key{outer, markerFormat, firstNumber};
    const auto known = listNumbers_.find(key);
    if (known != listNumbers_.end()) {
        return known->second;
    }
    if (lists_.size() == kMostLists || lists_[outer].size() == kDeepestList) {
        return outer;
    }
    std::vector<TextList> lists = lists_[outer];
    lists.push_back({markerFormat, 0, firstNumber});
    const auto number = static_cast<std::uint16_t>(lists_.size());
    lists_.push_back(std::move(lists));
    listNumbers_.emplace(key, number);
    return number;
}

std::uint32_t HtmlAttributes::indexOf(const HtmlLook& look) {
    const HtmlCharacterFormat& character = look.character;
    const std::size_t mixed = character.size + character.link * 5U + (character.isBold ? 31U : 0U) +
                              (character.isItalic ? 17U : 0U) + (character.isMonospaced ? 7U : 0U) +
                              look.paragraph.headerLevel + look.paragraph.list * 3U;
    Recent& recent = recent_[mixed % kMostRecent];
    if (!recent.isSet || recent.look != look) {
        recent = {look, findIndex(look), true};
    }
    return recent.index;
}

std::uint32_t HtmlAttributes::findIndex(const HtmlLook& look) {
    const auto known = indices_.find(look);
    if (known != indices_.end()) {
        return known->second;
    }
    if (sets_.size() == kMostSets) {
        return kNoAttributes;
    }
    const auto index = static_cast<std::uint32_t>(sets_.size());
    sets_.push_back(attributesOf(look));
    indices_.emplace(look, index);
    return index;
}

Attributes HtmlAttributes::attributesOf(const HtmlLook& look) {
    const HtmlCharacterFormat& character = look.character;
    std::vector<Dictionary::Entry> entries;
    entries.emplace_back(kFontAttributeName, fontOf(character));
    if (character.isUnderlined) {
        entries.emplace_back(kUnderlineStyleAttributeName, static_cast<int>(kSingleLine));
    }
    if (character.isStruck) {
        entries.emplace_back(kStrikethroughStyleAttributeName, static_cast<int>(kSingleLine));
    }
    if (character.superscript != 0) {
        entries.emplace_back(kSuperscriptAttributeName, static_cast<int>(character.superscript));
    }
    if (look.paragraph != HtmlParagraphFormat()) {
        entries.emplace_back(kParagraphStyleAttributeName, paragraphStyleOf(look.paragraph));
    }
    if (character.link != 0) {
        entries.emplace_back(kLinkAttributeName, links_[character.link]);
    }
    return std::make_shared<const Dictionary>(std::move(entries));
}

Value HtmlAttributes::fontOf(const HtmlCharacterFormat& character) {
    constexpr double kHundredths = 100;
    HtmlCharacterFormat key;
    key.size = character.size;
    key.isBold = character.isBold;
    key.isItalic = character.isItalic;
    key.isMonospaced = character.isMonospaced;
    const auto [place, isNew] = fonts_.try_emplace(key);
    if (isNew) {
        place->second = made<Font>(fontNameWithTraits(key.isMonospaced ? kMonospacedFont : kFont,
                                                      {key.isBold, key.isItalic}),
                                   key.size / kHundredths);
    }
    return place->second;
}

Value HtmlAttributes::paragraphStyleOf(const HtmlParagraphFormat& paragraph) {
    constexpr double kIndent = 36;
    const auto [place, isNew] = paragraphStyles_.try_emplace(paragraph);
    if (isNew) {
        ParagraphLayout layout;
        layout.alignment = paragraph.alignment;
        layout.baseWritingDirection = paragraph.direction;
        layout.headerLevel = paragraph.headerLevel;
        layout.textLists = lists_[paragraph.list];
        layout.headIndent = kIndent * static_cast<double>(layout.textLists.size());
        place->second = made<ParagraphStyle>(std::move(layout));
    }
    return place->second;
}

}  // namespace platform
