#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Text/HtmlParser.h"
#include "Platform/Text/HtmlStyles.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

std::int32_t numberIn(const char* text, std::int32_t otherwise) {
    constexpr std::int32_t kMost = 1'000'000;
    std::string_view digits(text);
    digits.remove_prefix(std::min(digits.find_first_not_of(kHtmlBlanks), digits.size()));
    digits.remove_prefix(digits.starts_with('+') ? 1 : 0);
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), number);
    const bool isNumber = error == std::errc() && number <= kMost && number >= -kMost;
    return isNumber ? number : otherwise;
}

std::string_view withoutBlanksAround(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kHtmlBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kHtmlBlanks) + 1);
}

}  // namespace

void HtmlParser::begin(State& state, const HtmlValues& values) {
    const char* const declarations = values["style"];
    const HtmlInlineStyle style =
        declarations != nullptr ? htmlInlineStyleOf(declarations) : HtmlInlineStyle();
    if (style.display == HtmlDisplay::Block && state.role == HtmlRole::Inline) {
        state.role = HtmlRole::Block;
    } else if (style.display == HtmlDisplay::Inline && state.role == HtmlRole::Block) {
        state.role = HtmlRole::Inline;
    }
    const bool isClosed = state.role == HtmlRole::Dialog && !values.has("open");
    state.isHidden = state.role == HtmlRole::Hidden || isClosed ||
                     style.display == HtmlDisplay::None || values.has("hidden");
    if (state.isHidden) {
        return;
    }
    setLook(state, values);
    beginBlock(state, values);
    state.isPreformatted = style.isPreformatted.value_or(state.isPreformatted);
    if (style.hasNoMarker) {
        state.list.marker = HtmlMarker::None;
    }
}

void HtmlParser::beginBlock(State& state, const HtmlValues& values) {
    switch (state.role) {
        case HtmlRole::Inline:
        case HtmlRole::Page:
            break;
        case HtmlRole::Control:
            text_.separate(look());
            break;
        case HtmlRole::Break:
            text_.breakLine(look());
            break;
        case HtmlRole::Image:
            insertImage(values);
            break;
        case HtmlRole::Input:
            insertInput(values);
            break;
        case HtmlRole::Options:
            text_.endParagraph(look());
            insertText(values["label"]);
            text_.endParagraph(look());
            break;
        case HtmlRole::Ruby:
            state.isInRuby = true;
            break;
        case HtmlRole::Reading:
            state.isReading = state.isInRuby;
            break;
        case HtmlRole::List:
        case HtmlRole::NumberedList:
            text_.endParagraph(look());
            beginList(state, values);
            break;
        case HtmlRole::Table:
            text_.endParagraph(look());
            text_.beginTable();
            break;
        case HtmlRole::Row:
            text_.beginRow(look());
            break;
        case HtmlRole::Cell:
            beginCell();
            break;
        case HtmlRole::Preformatted:
            text_.endParagraph(look());
            state.isPreformatted = true;
            mayDropLineEnd_ = true;
            break;
        default:
            text_.endParagraph(look());
            break;
    }
}

void HtmlParser::beginList(State& state, const HtmlValues& values) {
    constexpr HtmlMarker kBullets[] = {HtmlMarker::Disc, HtmlMarker::Circle, HtmlMarker::Square};
    List& list = state.list;
    const bool isNumbered = state.role == HtmlRole::NumberedList;
    list.marker =
        isNumbered ? HtmlMarker::Decimal : kBullets[std::min(list.depth, std::size(kBullets) - 1)];
    if (const char* const type = values["type"]) {
        list.marker = htmlMarkerOfType(type, list.marker);
    }
    list.depth += 1;
    list.step = values.has("reversed") ? -1 : 1;
    const char* const start = values["start"];
    list.next = start != nullptr ? numberIn(start, 1) : 1;
    state.look.paragraph.list =
        attributes_.addList(state.look.paragraph.list, formatOfHtmlMarker(list.marker), list.next);
}

void HtmlParser::beginItem(const HtmlValues& values) {
    // The list's own state counts on; an item outside any list is marked as if it stood in one.
    const auto place = std::find_if(states_.rbegin(), states_.rend() - 1, [](const State& state) {
        return state.role == HtmlRole::List || state.role == HtmlRole::NumberedList;
    });
    List& list = place->list;
    HtmlMarker marker = top().list.marker;
    if (const char* const type = values["type"]) {
        marker = htmlMarkerOfType(type, marker);
    }
    const char* const value = values["value"];
    const std::int32_t number = value != nullptr ? numberIn(value, list.next) : list.next;
    list.next = number + list.step;
    text_.addMarker(textOfHtmlMarker(marker, number));
}

void HtmlParser::beginCell() {
    if (text_.isInTable()) {
        text_.beginCell();
    } else {
        text_.endParagraph(look());
    }
}

void HtmlParser::endCell() {
    if (text_.isInTable()) {
        text_.endCell();
    } else {
        text_.endParagraph(look());
    }
}

void HtmlParser::insertInput(const HtmlValues& values) {
    constexpr std::string_view kSilent[] = {"hidden", "password", "checkbox", "radio",
                                            "file",   "color",    "range"};
    const char* const type = values["type"];
    const std::string_view kind = type != nullptr ? type : "text";
    const bool isSilent =
        std::any_of(std::begin(kSilent), std::end(kSilent),
                    [&](std::string_view silent) { return equalIgnoringAsciiCase(kind, silent); });
    if (!isSilent) {
        text_.separate(look());
        insertText(values[equalIgnoringAsciiCase(kind, "image") ? "alt" : "value"]);
        text_.separate(look());
    }
}

/// Letters in pictures belong to the letters beside them, but not to other pictures.
void HtmlParser::insertImage(const HtmlValues& values) {
    if (text_.length() == imageEnd_) {
        text_.separate(look());
    }
    const std::size_t length = text_.length();
    insertText(values["alt"]);
    imageEnd_ = text_.length() > length ? text_.length() : imageEnd_;
}

void HtmlParser::insertText(const char* text) {
    if (text != nullptr) {
        text_.append(text, look());
    }
}

void HtmlParser::end(const State& state) {
    if (state.isHidden) {
        return;
    }
    switch (state.role) {
        case HtmlRole::Inline:
        case HtmlRole::Page:
        case HtmlRole::Break:
        case HtmlRole::Image:
        case HtmlRole::Input:
        case HtmlRole::Reading:
            break;
        case HtmlRole::Control:
            text_.separate(look());
            break;
        case HtmlRole::Ruby:
            endRuby();
            break;
        case HtmlRole::Item:
            text_.endParagraph(look());
            text_.dropMarker();
            break;
        case HtmlRole::Table:
            text_.endTable(look());
            break;
        case HtmlRole::Row:
            text_.beginRow(look());
            break;
        case HtmlRole::Cell:
            endCell();
            break;
        default:
            text_.endParagraph(look());
            break;
    }
}

void HtmlParser::endRuby() {
    const std::string_view text = withoutBlanksAround(readings_);
    if (!text.empty()) {
        text_.append("(", look());
        text_.append(text, look());
        text_.append(")", look());
    }
    readings_.clear();
}

void HtmlParser::setLook(State& state, const HtmlValues& values) {
    if (state.kind == nullptr) {
        return;
    }
    applyHtmlElement(*state.kind, state.role, values, state.look);
    const char* const target = values["href"];
    if (state.kind->style == HtmlStyle::Link && target != nullptr) {
        state.look.character.link = attributes_.addLink(withoutBlanksAround(target));
    }
}

}  // namespace platform
