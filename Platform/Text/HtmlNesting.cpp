#include "Platform/Text/HtmlNesting.h"

namespace platform {
namespace {

using Element = HtmlOpenElements::Element;

Element elementOf(const HtmlElement& known) {
    Element element;
    element.known = &known;
    element.kind = known.kind;
    element.name = known.name;
    element.group = known.group;
    element.rules = known.rules;
    return element;
}

/// How deep a part of a table lies in it; 0 for what is none.
int levelOf(HtmlGroup group) {
    switch (group) {
        case HtmlGroup::Caption:
        case HtmlGroup::Section:
            return 1;
        case HtmlGroup::Row:
            return 2;
        case HtmlGroup::Cell:
            return 3;
        default:
            return 0;
    }
}

}  // namespace

bool HtmlNesting::isInForeign() const {
    return open_.isInForeign() && (open_[open_.innermost()].rules & kHtmlHoldsHtml) == 0;
}

HtmlNesting::Contents HtmlNesting::start(const HtmlTag& tag, std::string_view name) {
    const HtmlElement* element = htmlElementNamed(tag.name);
    if (isInForeign()) {
        if (element == nullptr || (element->rules & kHtmlEndsForeign) == 0) {
            startForeign(element, tag, name);
            return Contents::Markup;
        }
        leaveForeign();
    }
    if (element != nullptr && (element->rules & kHtmlForeign) == 0) {
        return startKnown(*element, tag);
    }
    Element unknown;
    unknown.name = name;
    open_.begin(unknown, tag);
    if (tag.isEmptyElement && syntax_ == HtmlSyntax::Xml) {
        open_.endInnermost();
    }
    return Contents::Markup;
}

void HtmlNesting::startForeign(const HtmlElement* element, const HtmlTag& tag,
                               std::string_view name) {
    constexpr std::uint32_t kKnown = kHtmlForeign | kHtmlAlsoForeign;
    Element begun;
    begun.name = name;
    begun.isForeign = true;
    if (element != nullptr && (element->rules & kKnown) != 0) {
        begun.known = element;
        begun.kind = element->kind;
        const bool holdsHtml = (element->rules & kHtmlHoldsHtml) != 0;
        begun.rules = holdsHtml ? kHtmlHoldsHtml | kHtmlSpecial | kHtmlScope : 0U;
    }
    open_.begin(begun, tag);
    if (tag.isEmptyElement) {
        open_.endInnermost();
    }
}

HtmlNesting::Contents HtmlNesting::startKnown(const HtmlElement& element, const HtmlTag& tag) {
    const bool isForeign = element.group == HtmlGroup::Foreign;
    const bool isClosed = tag.isEmptyElement && (isForeign || syntax_ == HtmlSyntax::Xml);
    if (element.group == HtmlGroup::Head) {
        return Contents::Markup;
    }
    if (element.group == HtmlGroup::Page) {
        startPage(element, tag);
        return Contents::Markup;
    }
    if ((element.rules & kHtmlDropped) != 0) {
        return isClosed ? Contents::Markup : Contents::Nothing;
    }
    if ((element.rules & kHtmlFormatting) != 0) {
        startFormat(element, tag);
        return Contents::Markup;
    }
    if (!endBefore(element)) {
        return Contents::Markup;
    }
    if ((element.rules & kHtmlVoid) != 0) {
        if (element.kind->role != HtmlRole::Inline) {
            open_.insert(element, tag);
        }
        return Contents::Markup;
    }
    Element begun = elementOf(element);
    begun.isForeign = isForeign;
    open_.begin(begun, tag);
    if (isClosed) {
        open_.endInnermost();
        return Contents::Markup;
    }
    return (element.rules & kHtmlRaw) == 0 ? Contents::Markup
           : element.name == "plaintext"   ? Contents::Rest
                                           : Contents::Text;
}

/// The first of each counts, unless something else is open; it has no end.
void HtmlNesting::startPage(const HtmlElement& element, const HtmlTag& tag) {
    const bool isFirst = open_.find([&](const Element& each) { return each.known == &element; },
                                    kHtmlNoRules) == kNone;
    if (isFirst && open_.depth() == open_.count(HtmlGroup::Page)) {
        open_.begin(elementOf(element), tag);
    }
}

void HtmlNesting::startFormat(const HtmlElement& element, const HtmlTag& tag) {
    if (element.group == HtmlGroup::Anchor) {
        (void)open_.endFormat(element);
    }
    open_.beginFormat(element, tag);
    if (tag.isEmptyElement && syntax_ == HtmlSyntax::Xml) {
        (void)open_.endFormat(element);
    }
}

/// Ends what an element cannot stand in. False for one that does not begin, then.
bool HtmlNesting::endBefore(const HtmlElement& element) {
    switch (element.group) {
        case HtmlGroup::Form:
            if (open_.count(HtmlGroup::Form) > 0) {
                return false;
            }
            break;
        case HtmlGroup::Select:
            if (endInScope(HtmlGroup::Select, kHtmlScope)) {
                return false;
            }
            break;
        case HtmlGroup::Field:
            (void)endInScope(HtmlGroup::Select, kHtmlScope);
            break;
        case HtmlGroup::Button:
            (void)endInScope(HtmlGroup::Button, kHtmlScope);
            break;
        case HtmlGroup::Item:
        case HtmlGroup::Definition:
            endBeforeItem(element.group);
            break;
        case HtmlGroup::OptionGroup:
            endIfInnermost(HtmlGroup::Option);
            endIfInnermost(HtmlGroup::OptionGroup);
            break;
        case HtmlGroup::Option:
            endIfInnermost(HtmlGroup::Option);
            break;
        case HtmlGroup::RubyBase:
        case HtmlGroup::RubyReading:
        case HtmlGroup::ReadingContainer:
            endBeforeRubyPart(element.group);
            break;
        case HtmlGroup::Table:
            endBeforeTable();
            break;
        default:
            if (levelOf(element.group) > 0) {
                endBeforeTablePart(element.group);
            }
            break;
    }
    if ((element.rules & kHtmlEndsParagraph) != 0) {
        (void)endInScope(HtmlGroup::Paragraph, kHtmlScope | kHtmlShieldsParagraphs);
    }
    if (element.group == HtmlGroup::Heading) {
        endIfInnermost(HtmlGroup::Heading);
    }
    return true;
}

/// An item ends the one before, but not the one whose list it stands in.
void HtmlNesting::endBeforeItem(HtmlGroup group) {
    const auto isItemOrAround = [&](const Element& element) {
        constexpr std::uint32_t kBoth = kHtmlSpecial | kHtmlLetsItemsEnd;
        return element.group == group || (element.rules & kBoth) == kHtmlSpecial;
    };
    const std::size_t place = open_.find(isItemOrAround, kHtmlNoRules);
    if (place != kNone && open_[place].group == group) {
        open_.endFrom(place);
    }
}

void HtmlNesting::endBeforeRubyPart(HtmlGroup group) {
    if (open_.find(HtmlGroup::Ruby, kHtmlScope) != kNone) {
        endImplied(group == HtmlGroup::RubyReading ? HtmlGroup::ReadingContainer : HtmlGroup::None);
    }
}

/// A table that stands in another, but in no cell of it, ends the other.
void HtmlNesting::endBeforeTable() {
    const auto isAround = [](const Element& element) {
        return element.group == HtmlGroup::Table || element.group == HtmlGroup::Cell ||
               element.group == HtmlGroup::Caption;
    };
    const std::size_t place = open_.find(isAround, kHtmlScope);
    if (place != kNone && open_[place].group == HtmlGroup::Table) {
        open_.endFrom(place);
    }
}

/// A part of a table ends all up to what it can stand in: cells up to their row, for example.
void HtmlNesting::endBeforeTablePart(HtmlGroup group) {
    const int level = levelOf(group);
    const auto isAround = [&](const Element& element) {
        const int other = levelOf(element.group);
        return element.group == HtmlGroup::Table || element.group == HtmlGroup::Template ||
               (other > 0 && other < level && element.group != HtmlGroup::Caption);
    };
    const std::size_t place = open_.find(isAround, kHtmlNoRules);
    if (place == kNone) {
        // There is no table: they are blocks that end their like.
        const auto isLike = [&](const Element& element) {
            return levelOf(element.group) >= level;
        };
        for (std::size_t like = open_.find(isLike, kHtmlNoRules); like != kNone;
             like = open_.find(isLike, kHtmlNoRules)) {
            open_.endFrom(like);
        }
        return;
    }
    const HtmlGroup around = open_[place].group;
    open_.endFrom(place + 1);
    if (group == HtmlGroup::Cell && (around == HtmlGroup::Table || around == HtmlGroup::Section)) {
        open_.begin(elementOf(*htmlElementNamed("tr")), HtmlTag());
    }
}

void HtmlNesting::endIfInnermost(HtmlGroup group) {
    if (open_.innermostGroup() == group) {
        open_.endInnermost();
    }
}

}  // namespace platform
