#include "Platform/Text/ParagraphStyle.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {
namespace {

/// A length under its name on disk; left out there when it is 0.
struct LengthField {
    std::string_view key;
    double ParagraphLayout::*length;
};

constexpr LengthField kLengths[] = {
    {"NSFirstLineHeadIndent", &ParagraphLayout::firstLineHeadIndent},
    {"NSHeadIndent", &ParagraphLayout::headIndent},
    {"NSTailIndent", &ParagraphLayout::tailIndent},
    {"NSLineSpacing", &ParagraphLayout::lineSpacing},
    {"NSParagraphSpacing", &ParagraphLayout::paragraphSpacing},
    {"NSParagraphSpacingBefore", &ParagraphLayout::paragraphSpacingBefore},
    {"NSMinLineHeight", &ParagraphLayout::minimumLineHeight},
    {"NSMaxLineHeight", &ParagraphLayout::maximumLineHeight},
    {"NSLineHeightMultiple", &ParagraphLayout::lineHeightMultiple},
    {"NSDefaultTabInterval", &ParagraphLayout::defaultTabInterval},
    {"NSHyphenationFactor", &ParagraphLayout::hyphenationFactor},
};

constexpr std::string_view kAlignment = "NSAlignment";
constexpr std::string_view kWritingDirection = "NSWritingDirection";
constexpr std::string_view kLineBreakMode = "NSLineBreakMode";
constexpr std::string_view kHeaderLevel = "NSHeaderLevel";
constexpr std::string_view kTabStops = "NSTabStops";
constexpr std::string_view kTextLists = "NSTextLists";

/// The number of an enumerator, or the default where the archive states another.
template <class Enum>
Enum enumerator(const Value& value, std::int64_t first, std::int64_t last, Enum otherwise) {
    const auto number = value.integer();
    return number && *number >= first && *number <= last ? static_cast<Enum>(*number) : otherwise;
}

TextAlignment alignmentOf(const Value& value, TextAlignment otherwise) {
    return enumerator(value, 0, 4, otherwise);
}

/// Calls `receive` for each element that is an object nobody here knows, up to the first Fault.
/// Styles may share the elements, so looking at each counts.
template <class Receive>
Outcome forEachOpaque(const Value& array, BuildBudget& budget, Receive receive) {
    if (const Array* const elements = array.array()) {
        for (const Value& element : *elements) {
            const auto object = element.object();
            if (const auto* const opaque = dynamic_cast<const OpaqueObject*>(object.get())) {
                PV_TRY(budget.charge(opaque->fields.size() + 1, sizeof(TextList)));
                PV_TRY(receive(*opaque));
            }
        }
    }
    return done();
}

Result<std::optional<std::vector<TextTab>>> tabsOf(const Value& array, BuildBudget& budget) {
    if (array.array() == nullptr) {
        return std::optional<std::vector<TextTab>>();
    }
    std::vector<TextTab> tabs;
    PV_TRY(forEachOpaque(array, budget, [&](const OpaqueObject& tab) {
        tabs.push_back({tab["NSLocation"].doubleValue().value_or(0),
                        alignmentOf(tab["NSTextAlignment"], TextAlignment::Left)});
        return done();
    }));
    return std::optional(std::move(tabs));
}

Result<std::vector<TextList>> listsOf(const Value& array, BuildBudget& budget) {
    std::vector<TextList> lists;
    PV_TRY(forEachOpaque(array, budget, [&](const OpaqueObject& list) -> Outcome {
        lists.push_back({PV_TRY(chargedUtf8(list["NSMarkerFormat"], budget)).value_or(""),
                         list["NSOptions"].integer().value_or(0),
                         list["NSStart"].integer().value_or(1)});
        return done();
    }));
    return lists;
}

Value archivedTab(const TextTab& tab) {
    std::vector<OpaqueField> fields{{"NSLocation", tab.location}};
    if (tab.alignment != TextAlignment::Left) {
        fields.push_back({"NSTextAlignment", static_cast<std::int64_t>(tab.alignment)});
    }
    return Value(OpaqueObject::make({"NSTextTab", "NSObject"}, std::move(fields)));
}

Value archivedList(const TextList& list) {
    std::vector<OpaqueField> fields{
        {"NSMarkerFormat", Value::fromUtf8(list.markerFormat), FieldForm::Reference}};
    if (list.options != 0) {
        fields.push_back({"NSOptions", list.options});
    }
    if (list.startingItemNumber != 1) {
        fields.push_back({"NSStart", list.startingItemNumber});
    }
    return Value(OpaqueObject::make({"NSTextList", "NSObject"}, std::move(fields)));
}

template <class Items, class Archive>
Value archivedItems(const Items& items, Archive archive) {
    Array array;
    std::transform(items.begin(), items.end(), std::back_inserter(array), archive);
    return Value(std::move(array));
}

}  // namespace

Result<std::shared_ptr<const ParagraphStyle>> ParagraphStyle::fromArchived(
    std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget) {
    const OpaqueObject& fields = *archived;
    ParagraphLayout layout;
    layout.alignment = alignmentOf(fields[kAlignment], TextAlignment::Natural);
    // Stored one higher.
    const auto direction = enumerator<std::int64_t>(fields[kWritingDirection], 0, 2, 0);
    layout.baseWritingDirection = static_cast<WritingDirection>(direction - 1);
    layout.lineBreakMode = fields[kLineBreakMode].integer().value_or(0);
    layout.headerLevel = fields[kHeaderLevel].integer().value_or(0);
    for (const auto& [key, length] : kLengths) {
        layout.*length = fields[key].doubleValue().value_or(0);
    }
    layout.tabStops = PV_TRY(tabsOf(fields[kTabStops], budget));
    layout.textLists = PV_TRY(listsOf(fields[kTextLists], budget));
    return std::shared_ptr<const ParagraphStyle>(
        new ParagraphStyle(std::move(archived), std::move(layout)));
}

std::shared_ptr<const ArchivedClassNames> ParagraphStyle::ownClass() const {
    return classNamed({"NSParagraphStyle", "NSObject"});
}

void ParagraphStyle::encodeFields(KeyedArchiver& coder) const {
    const auto encodeNumber = [&](std::int64_t number, std::int64_t usual, std::string_view key) {
        if (number != usual) {
            coder.encodeInteger(number, key);
        }
    };
    encodeNumber(static_cast<std::int64_t>(layout_.alignment),
                 static_cast<std::int64_t>(TextAlignment::Natural), kAlignment);
    encodeNumber(static_cast<std::int64_t>(layout_.baseWritingDirection) + 1, 0, kWritingDirection);
    encodeNumber(layout_.lineBreakMode, 0, kLineBreakMode);
    encodeNumber(layout_.headerLevel, 0, kHeaderLevel);
    for (const auto& [key, length] : kLengths) {
        if (layout_.*length != 0) {
            coder.encodeDouble(layout_.*length, key);
        }
    }
    // The null object means the default tabs, an array of none means none.
    coder.encodeObject(layout_.tabStops ? archivedItems(*layout_.tabStops, archivedTab) : Value(),
                       kTabStops);
    if (!layout_.textLists.empty()) {
        coder.encodeObject(archivedItems(layout_.textLists, archivedList), kTextLists);
    }
}

}  // namespace platform
