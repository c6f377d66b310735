// Which element ends which: pages leave ends out, and have them in the wrong place.
//
// The rules are those of the HTML standard for the making of its tree, as far as text depends on
// them. Elements stay where the page has them: text between the cells of a table, for example, is
// not moved before the table. One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Platform/Text/HtmlElements.h"
#include "Platform/Text/HtmlOpenElements.h"
#include "Platform/Text/HtmlStream.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {

/// Takes the tags of a page and writes them as browsers understand them.
class HtmlNesting {
public:
    /// Requires: the stream lives longer.
    HtmlNesting(HtmlStream& stream, std::size_t pageSize, HtmlSyntax syntax)
        : open_(stream, pageSize), syntax_(syntax) {}

    /// What stands behind a tag.
    enum class Contents : std::uint8_t {
        Markup,
        Text,     ///< text up to the end tag of the element
        Nothing,  ///< the same, and no text of the page
        Rest      ///< text to the end of the page
    };

    /// Takes a tag that begins an element, `name` being its name as the page has it, which lives as
    /// long as this.
    Contents start(const HtmlTag& tag, std::string_view name);

    /// Takes a tag that ends one.
    void end(const HtmlTag& tag);

    /// Has to be told before text.
    void expectText(std::string_view text) { open_.expectText(text); }

    /// Whether what comes next stands in a picture or formula, where XML's syntax counts.
    [[nodiscard]] bool isInForeign() const;

private:
    using Element = HtmlOpenElements::Element;
    static constexpr std::size_t kNone = HtmlOpenElements::kNone;

    void startForeign(const HtmlElement* element, const HtmlTag& tag, std::string_view name);
    Contents startKnown(const HtmlElement& element, const HtmlTag& tag);
    void startPage(const HtmlElement& element, const HtmlTag& tag);
    void startFormat(const HtmlElement& element, const HtmlTag& tag);
    [[nodiscard]] bool endBefore(const HtmlElement& element);
    void endBeforeItem(HtmlGroup group);
    void endBeforeRubyPart(HtmlGroup group);
    void endBeforeTable();
    void endBeforeTablePart(HtmlGroup group);
    void endIfInnermost(HtmlGroup group);
    void endImplied(HtmlGroup except);
    /// Ends the innermost of a group that is not beyond one with a rule; false when there is none.
    bool endInScope(HtmlGroup group, std::uint32_t boundaries);
    void endKnown(const HtmlElement& element);
    void endTablePart(const HtmlElement& element);
    void endForm();
    void endOther(const HtmlElement& element);
    [[nodiscard]] bool endForeign(const HtmlTag& tag);
    void leaveForeign();

    HtmlOpenElements open_;
    const HtmlSyntax syntax_;
};

}  // namespace platform
