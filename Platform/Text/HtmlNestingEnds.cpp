#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Text/HtmlNesting.h"

namespace platform {
namespace {

/// Whether an element may end without a tag that says so.
bool hasImpliedEnd(HtmlGroup group) {
    switch (group) {
        case HtmlGroup::Paragraph:
        case HtmlGroup::Item:
        case HtmlGroup::Definition:
        case HtmlGroup::Option:
        case HtmlGroup::OptionGroup:
        case HtmlGroup::RubyBase:
        case HtmlGroup::RubyReading:
        case HtmlGroup::ReadingContainer:
            return true;
        default:
            return false;
    }
}

}  // namespace

void HtmlNesting::end(const HtmlTag& tag) {
    const HtmlElement* const element = htmlElementNamed(tag.name);
    if (open_.isInForeign()) {
        const HtmlGroup group = element != nullptr ? element->group : HtmlGroup::None;
        if (group == HtmlGroup::Break || group == HtmlGroup::Paragraph) {
            leaveForeign();
        } else if (endForeign(tag)) {
            return;
        }
    }
    if (element != nullptr && (element->rules & kHtmlForeign) == 0) {
        endKnown(*element);
    } else {
        open_.endInline(element, tag.name);
    }
}

/// Ends an element of a picture or formula; false where HTML is reached before it.
bool HtmlNesting::endForeign(const HtmlTag& tag) {
    const auto isItOrHtml = [&](const Element& element) {
        return !element.isForeign || equalIgnoringAsciiCase(element.name, tag.name);
    };
    const std::size_t place = open_.find(isItOrHtml, kHtmlNoRules);
    if (place == kNone || !open_[place].isForeign) {
        return false;
    }
    open_.endFrom(place);
    return true;
}

void HtmlNesting::leaveForeign() {
    while (isInForeign()) {
        open_.endInnermost();
    }
}

void HtmlNesting::endKnown(const HtmlElement& element) {
    switch (element.group) {
        case HtmlGroup::Page:
        case HtmlGroup::Head:
            // What stands behind the end of the page belongs to it, too.
            break;
        case HtmlGroup::Paragraph:
            if (!endInScope(HtmlGroup::Paragraph, kHtmlScope | kHtmlShieldsParagraphs)) {
                open_.insertBreak();
            }
            break;
        case HtmlGroup::Heading:
            (void)endInScope(HtmlGroup::Heading, kHtmlScope);
            break;
        case HtmlGroup::Item:
            (void)endInScope(HtmlGroup::Item, kHtmlScope | kHtmlShieldsItems);
            break;
        case HtmlGroup::Form:
            endForm();
            break;
        case HtmlGroup::Break:
            if (syntax_ == HtmlSyntax::Html) {
                open_.insert(element, HtmlTag());
            }
            break;
        case HtmlGroup::Table:
        case HtmlGroup::Caption:
        case HtmlGroup::Section:
        case HtmlGroup::Row:
        case HtmlGroup::Cell:
            endTablePart(element);
            break;
        case HtmlGroup::Template:
            (void)endInScope(HtmlGroup::Template, kHtmlNoRules);
            break;
        default:
            endOther(element);
            break;
    }
}

void HtmlNesting::endOther(const HtmlElement& element) {
    if ((element.rules & (kHtmlVoid | kHtmlDropped)) != 0) {
        return;
    }
    if ((element.rules & kHtmlSpecial) != 0) {
        const std::size_t place =
            open_.find([&](const Element& each) { return each.known == &element; }, kHtmlScope);
        if (place != kNone) {
            open_.endFrom(place);
        }
    } else if ((element.rules & kHtmlFormatting) == 0 || !open_.endFormat(element)) {
        open_.endInline(&element, element.name);
    }
}

void HtmlNesting::endTablePart(const HtmlElement& element) {
    const auto isItOrAround = [&](const Element& each) {
        return each.known == &element || each.group == HtmlGroup::Table ||
               each.group == HtmlGroup::Template;
    };
    const std::size_t place = open_.find(isItOrAround, kHtmlNoRules);
    if (place != kNone && open_[place].known == &element) {
        open_.endFrom(place);
    }
}

/// The end of a form that is not the innermost element lets the others go on.
void HtmlNesting::endForm() {
    const std::size_t place = open_.find(HtmlGroup::Form, kHtmlNoRules);
    if (place == kNone) {
        return;
    }
    if (open_.find(HtmlGroup::Form, kHtmlScope) != kNone) {
        endImplied(HtmlGroup::None);
    }
    if (open_.innermost() == place) {
        open_.endInnermost();
    } else {
        open_.leaveGroup(place);
    }
}

/// Ends elements that may end without a tag, those of one group excepted.
void HtmlNesting::endImplied(HtmlGroup except) {
    while (hasImpliedEnd(open_.innermostGroup()) && open_.innermostGroup() != except) {
        open_.endInnermost();
    }
}

bool HtmlNesting::endInScope(HtmlGroup group, std::uint32_t boundaries) {
    const std::size_t place = open_.find(group, boundaries);
    if (place != kNone) {
        open_.endFrom(place);
    }
    return place != kNone;
}

}  // namespace platform
