#include "Platform/Text/HtmlOpenElements.h"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/AsciiCase.h"

namespace platform {
namespace {

/// A row or cell that stands in no table.
constexpr const HtmlKind* kBlock = htmlKindOf(HtmlRole::Block, HtmlStyle::None, 0);

bool goesOnInLine(HtmlRole role) {
    return role == HtmlRole::Inline || role == HtmlRole::Ruby || role == HtmlRole::Reading;
}

bool doesSomething(const HtmlKind& kind) {
    const bool isPlain = kind.role == HtmlRole::Inline || kind.role == HtmlRole::Page;
    return !isPlain || kind.style != HtmlStyle::None;
}

}  // namespace

void HtmlOpenElements::begin(const Element& element, const HtmlTag& tag) {
    while (elements_.size() >= kMostDepth - kMostFormats) {
        endTop();
    }
    if (!goesOnInLine(element.kind->role)) {
        endFormatsOnTop();
    }
    Element begun = element;
    if (!fitsHere(begun.kind->role)) {
        begun.kind = kBlock;
    }
    write(begun, tag);
    if ((begun.rules & kHtmlShieldsFormatting) != 0) {
        begun.format = std::exchange(firstFormat_, formats_.size());
    }
    ++depth_;
    foreignDepth_ += begun.isForeign ? 1 : 0;
    ++counts_[static_cast<std::size_t>(begun.group)];
    elements_.push_back(begun);
}

/// Whether the parser can get an element here: it has rules for rows and cells.
bool HtmlOpenElements::fitsHere(HtmlRole role) const {
    if (role != HtmlRole::Row && role != HtmlRole::Cell) {
        return true;
    }
    const auto around = std::find_if(elements_.rbegin(), elements_.rend(),
                                     [](const Element& element) { return element.isWritten; });
    const HtmlRole outer = around != elements_.rend() ? around->kind->role : HtmlRole::Page;
    return role == HtmlRole::Cell ? outer == HtmlRole::Row
                                  : outer != HtmlRole::Row && outer != HtmlRole::Cell;
}

void HtmlOpenElements::write(Element& element, const HtmlTag& tag) {
    const HtmlKind& kind = *element.kind;
    element.isWritten = doesSomething(kind);
    if (tag.attributes.empty()) {
        if (element.isWritten) {
            stream_.writeTag(kind.startTag());
        }
        return;
    }
    tag_.clear();
    element.isWritten = appendHtmlStartTag(tag, kind, tag_) || element.isWritten;
    if (element.isWritten) {
        tag_ += '>';
        stream_.writeTag(tag_);
    }
}

void HtmlOpenElements::insert(const HtmlElement& element, const HtmlTag& tag) {
    if (element.kind->role == HtmlRole::Block) {
        endFormatsOnTop();
    } else if (lacksFormats_) {
        openFormats();
    }
    tag_.clear();
    (void)appendHtmlStartTag(tag, *element.kind, tag_);
    tag_ += "/>";
    stream_.writeTag(tag_);
}

void HtmlOpenElements::insertBreak() {
    endFormatsOnTop();
    stream_.writeTag("<div/>");
}

void HtmlOpenElements::endFrom(std::size_t place) {
    while (elements_.size() > place) {
        endTop();
    }
}

void HtmlOpenElements::endFormatsOnTop() {
    while (!elements_.empty() && elements_.back().isFormat) {
        endTop();
    }
}

void HtmlOpenElements::endTop() {
    const Element element = elements_.back();
    elements_.pop_back();
    if (element.isWritten) {
        stream_.writeTag(element.kind->endTag());
    }
    if (!element.isFormat) {
        leave(element);
    } else if (const auto format =
                   std::find_if(formats_.begin(), formats_.end(),
                                [&](const Format& each) { return each.number == element.format; });
               format != formats_.end()) {
        format->isOpen = false;
    }
    lacksFormats_ = !formats_.empty();
}

/// Notes that an element that is no format has ended.
void HtmlOpenElements::leave(const Element& element) {
    --depth_;
    foreignDepth_ -= element.isForeign ? 1 : 0;
    --counts_[static_cast<std::size_t>(element.group)];
    if ((element.rules & kHtmlShieldsFormatting) != 0) {
        formats_.erase(formats_.begin() + static_cast<std::ptrdiff_t>(firstFormat_),
                       formats_.end());
        firstFormat_ = element.format;
    }
    for (Format& format : formats_) {
        if (format.depth > depth_) {
            format.depth = kNone;
        }
    }
}

void HtmlOpenElements::beginFormat(const HtmlElement& element, const HtmlTag& tag) {
    constexpr std::ptrdiff_t kMostOfOne = 3;
    tag_.clear();
    const bool hasAttributes = appendHtmlStartTag(tag, *element.kind, tag_);
    tag_ += '>';
    if (!hasAttributes && !doesSomething(*element.kind)) {
        tag_.clear();
    }
    const auto first = formats_.begin() + static_cast<std::ptrdiff_t>(firstFormat_);
    const auto isSame = [&](const Format& format) {
        return format.element == &element && format.tag == tag_;
    };
    if (std::count_if(first, formats_.end(), isSame) >= kMostOfOne) {
        formats_.erase(std::find_if(first, formats_.end(), isSame));
    }
    if (formats_.size() == kMostFormats) {
        begin({&element, element.kind, element.name, element.group, element.rules}, tag);
        return;
    }
    formats_.push_back({&element, nextNumber_++, tag_, depth_});
    lacksFormats_ = true;
}

bool HtmlOpenElements::endFormat(const HtmlElement& element) {
    auto format = formats_.end();
    while (format != formats_.begin() + static_cast<std::ptrdiff_t>(firstFormat_)) {
        --format;
        if (format->element != &element) {
            continue;
        }
        const Format ended = *format;
        formats_.erase(format);
        endWhatStandsIn(ended);
        return true;
    }
    return false;
}

/// Ends the inline elements that an ended format still has inside, and what was written for it.
void HtmlOpenElements::endWhatStandsIn(const Format& format) {
    std::size_t place = elements_.size();
    std::size_t depth = depth_;
    bool isBlocked = false;
    while (place > 0 && depth > format.depth && !isBlocked) {
        const Element& element = elements_[--place];
        isBlocked = (element.rules & kHtmlSpecial) != 0;
        depth -= element.isFormat ? 0 : 1;
    }
    if (!isBlocked && format.depth != kNone) {
        endFrom(place);
    }
    if (const std::size_t own = placeOf(format.number); format.isOpen && own != kNone) {
        endFrom(own);
    }
}

void HtmlOpenElements::endInline(const HtmlElement* known, std::string_view name) {
    for (std::size_t place = elements_.size(); place > 0; --place) {
        const Element& element = elements_[place - 1];
        const bool isIt = element.known == known &&
                          (known != nullptr || equalIgnoringAsciiCase(element.name, name));
        if (isIt) {
            endFrom(place - 1);
        }
        if (isIt || (element.rules & kHtmlSpecial) != 0) {
            return;
        }
    }
}

/// The place of what is written for a format, if it can end.
std::size_t HtmlOpenElements::placeOf(std::size_t formatNumber) const {
    for (std::size_t place = elements_.size(); place > 0; --place) {
        const Element& element = elements_[place - 1];
        if (element.isFormat && element.format == formatNumber) {
            return place - 1;
        }
        if ((element.rules & kHtmlSpecial) != 0) {
            break;
        }
    }
    return kNone;
}

void HtmlOpenElements::openFormats() {
    lacksFormats_ = false;
    for (std::size_t i = 0; i < formats_.size(); ++i) {
        Format& format = formats_[i];
        const bool reachesHere = format.depth != kNone || i >= firstFormat_;
        if (reachesHere && !format.isOpen && !format.tag.empty()) {
            open(format);
        }
    }
}

void HtmlOpenElements::open(Format& format) {
    if (elements_.size() >= kMostDepth || (format.wasOpen && repeated_ > mostRepeated_)) {
        return;
    }
    repeated_ += format.wasOpen ? format.tag.size() : 0;
    format.isOpen = format.wasOpen = true;
    format.depth = std::min(format.depth, depth_);
    stream_.writeTag(format.tag);
    Element element;
    element.known = format.element;
    element.kind = format.element->kind;
    element.isFormat = element.isWritten = true;
    element.format = format.number;
    elements_.push_back(element);
}

void HtmlOpenElements::leaveGroup(std::size_t place) {
    --counts_[static_cast<std::size_t>(elements_[place].group)];
    elements_[place].group = HtmlGroup::None;
    ++counts_[static_cast<std::size_t>(HtmlGroup::None)];
}

std::size_t HtmlOpenElements::innermost() const {
    std::size_t place = elements_.size();
    while (place > 0 && elements_[place - 1].isFormat) {
        --place;
    }
    return place == 0 ? kNone : place - 1;
}

}  // namespace platform
