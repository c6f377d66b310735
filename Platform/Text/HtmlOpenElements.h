// The elements of a page that are open, and the formatting that goes on over their ends.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/HtmlElements.h"
#include "Platform/Text/HtmlStartTag.h"
#include "Platform/Text/HtmlStream.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {

/// Writes the tags of elements as they begin and end, one inside the other.
///
/// Bold text, links and the like are formats: authors begin them before a block and end them inside
/// it, or behind its end. They are written inside the innermost element alone, when text follows,
/// and ended and begun anew around what else begins and ends. An element that does nothing to
/// the text is remembered and not written.
class HtmlOpenElements {
public:
    struct Element {
        /// Null for one that is not known.
        const HtmlElement* known = nullptr;
        /// What the parser gets.
        const HtmlKind* kind = htmlKindOf(HtmlRole::Inline, HtmlStyle::None, 0);
        /// As the page has it.
        std::string_view name;
        HtmlGroup group = HtmlGroup::None;
        std::uint32_t rules = kHtmlNoRules;
        bool isForeign = false;
        bool isFormat = false;
        bool isWritten = false;
        /// The number of a format, or else how many formats do not reach into the element before.
        std::size_t format = 0;
    };
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    /// Requires: the stream lives longer. Formats that go on take no more than twice the size of
    /// the page.
    HtmlOpenElements(HtmlStream& stream, std::size_t pageSize)
        : stream_(stream), mostRepeated_(2 * pageSize) {}

    /// Begins an element. In one that nests too deep the innermost ones end before.
    void begin(const Element& element, const HtmlTag& tag);

    /// Writes an element without contents.
    void insert(const HtmlElement& element, const HtmlTag& tag);

    /// Ends the line and begins none, as an empty block does.
    void insertBreak();

    /// Ends all from a place on.
    void endFrom(std::size_t place);

    void beginFormat(const HtmlElement& element, const HtmlTag& tag);
    /// Ends the last format that an element is and that reaches here; false when there is none.
    bool endFormat(const HtmlElement& element);

    /// Ends the innermost element of a name, a format or not, that is not beyond a special one.
    void endInline(const HtmlElement* known, std::string_view name);

    /// Has to be told before text.
    void expectText(std::string_view text) {
        if (lacksFormats_ && text.find_first_not_of(kHtmlBlanks) != std::string_view::npos) {
            openFormats();
        }
    }

    /// Returns the place of the innermost element of which `isIt` is true, not looking beyond the
    /// first that has one of the rules; kNone when there is none.
    template <class Predicate>
    [[nodiscard]] std::size_t find(const Predicate& isIt, std::uint32_t boundaries) const {
        for (std::size_t place = elements_.size(); place > 0; --place) {
            const Element& element = elements_[place - 1];
            if (!element.isFormat && isIt(element)) {
                return place - 1;
            }
            if ((element.rules & boundaries) != 0) {
                break;
            }
        }
        return kNone;
    }
    [[nodiscard]] std::size_t find(HtmlGroup group, std::uint32_t boundaries) const {
        return count(group) == 0
                   ? kNone
                   : find([&](const Element& element) { return element.group == group; },
                          boundaries);
    }

    /// How many elements of a group are open.
    [[nodiscard]] std::size_t count(HtmlGroup group) const {
        return counts_[static_cast<std::size_t>(group)];
    }
    [[nodiscard]] const Element& operator[](std::size_t place) const { return elements_[place]; }
    /// How many elements are open, formats left out.
    [[nodiscard]] std::size_t depth() const { return depth_; }
    /// The place of the innermost element that is no format; kNone when there is none.
    [[nodiscard]] std::size_t innermost() const;
    [[nodiscard]] HtmlGroup innermostGroup() const {
        const std::size_t place = innermost();
        return place != kNone ? elements_[place].group : HtmlGroup::None;
    }
    /// Ends that one. Requires: there is one.
    void endInnermost() { endFrom(innermost()); }
    /// Whether that one belongs to a picture or formula.
    [[nodiscard]] bool isInForeign() const {
        return foreignDepth_ > 0 && elements_[innermost()].isForeign;
    }

    /// Makes an element one of no group.
    void leaveGroup(std::size_t place);

private:
    struct Format {
        const HtmlElement* element;
        std::size_t number;
        /// What is written for it; empty for one that does nothing.
        std::string tag;
        /// How many elements it stands in; kNone when one of them has ended.
        std::size_t depth;
        bool isOpen = false;
        bool wasOpen = false;
    };

    static constexpr std::size_t kMostDepth = 512;
    static constexpr std::size_t kMostFormats = 64;

    [[nodiscard]] bool fitsHere(HtmlRole role) const;
    void write(Element& element, const HtmlTag& tag);
    void endFormatsOnTop();
    void endTop();
    void leave(const Element& element);
    void openFormats();
    void open(Format& format);
    void endWhatStandsIn(const Format& format);
    [[nodiscard]] std::size_t placeOf(std::size_t formatNumber) const;

    HtmlStream& stream_;
    const std::size_t mostRepeated_;
    std::vector<Element> elements_;
    std::vector<Format> formats_;
    std::string tag_;
    std::size_t counts_[static_cast<std::size_t>(HtmlGroup::Foreign) + 1] = {};
    /// How many of the elements are no formats.
    std::size_t depth_ = 0;
    std::size_t foreignDepth_ = 0;
    /// The formats before that one do not reach here, unless they are open.
    std::size_t firstFormat_ = 0;
    std::size_t nextNumber_ = 1;
    std::size_t repeated_ = 0;
    /// Whether a format that is not written may have to be.
    bool lacksFormats_ = false;
};

}  // namespace platform
