// Makes text of the elements of a page.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/HtmlAttributes.h"
#include "Platform/Text/HtmlFormat.h"
#include "Platform/Text/HtmlKinds.h"
#include "Platform/Text/HtmlMarkers.h"
#include "Platform/Text/HtmlText.h"
#include "Platform/Text/HtmlValues.h"

namespace platform {

/// Reads one page.
class HtmlParser {
public:
    /// Requires: the page is sound UTF-8 and lives until it is parsed.
    explicit HtmlParser(std::string_view page);

    /// Returns the page's text, once.
    [[nodiscard]] AttributedString parse();

private:
    /// A list that is open.
    struct List {
        HtmlMarker marker = HtmlMarker::Disc;
        std::int32_t next = 1;
        std::int32_t step = 1;
        std::size_t depth = 0;
    };

    /// An element that is open, and what it hands down to those inside it.
    struct State {
        const HtmlKind* kind = nullptr;
        HtmlRole role = HtmlRole::Inline;
        HtmlLook look;
        /// The number of the look once it has been asked for.
        std::uint32_t index = kUnknown;
        bool isHidden = false;
        bool isPreformatted = false;
        bool isInRuby = false;
        bool isReading = false;
        List list;
    };
    static constexpr std::uint32_t kUnknown = 0xFFFFFFFF;

    void startElement(std::string_view name, const char* const* attributes);
    void endElement();
    void takeCharacters(std::string_view utf8);

    void begin(State& state, const HtmlValues& values);
    void beginBlock(State& state, const HtmlValues& values);
    void beginList(State& state, const HtmlValues& values);
    void beginItem(const HtmlValues& values);
    void beginCell();
    void endCell();
    void insertImage(const HtmlValues& values);
    void insertInput(const HtmlValues& values);
    void insertText(const char* text);
    void setLook(State& state, const HtmlValues& values);
    void end(const State& state);
    void endRuby();

    [[nodiscard]] State& top() { return states_.back(); }
    /// The number of the look that text has now.
    [[nodiscard]] std::uint32_t look();

    const std::string_view page_;
    HtmlAttributes attributes_;
    HtmlText text_;
    /// The first one is that of no element.
    std::vector<State> states_;
    /// The readings of the characters before.
    std::string readings_;
    /// Where the text of the last picture ends.
    std::size_t imageEnd_ = 0;
    /// Whether a line end that comes next is no part of preformatted text.
    bool mayDropLineEnd_ = false;
};

}  // namespace platform
