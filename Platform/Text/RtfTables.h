// The tables of an RTF document: its fonts, its colours and its tabs.
//
// Entries come piece by piece, as the document gives them. One thread at a time.

#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/Color.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Platform/Text/RtfCodePages.h"

namespace platform {

/// Fonts by the numbers that the document gives them.
class RtfFonts {
public:
    /// Begins the entry of a number; one that comes again takes the place of the first.
    void begin(std::int32_t number);
    void setCharset(std::int32_t charset);
    void setCodePage(std::int32_t codePage);
    /// Adds to the entry's name; a semicolon ends it.
    void append(std::string_view name);
    void append(char16_t unit);
    /// Ends an entry that has no semicolon.
    void end();

    /// The code page of the document, for fonts that have none of their own.
    ///
    /// Requires: isRtfCodePage.
    void setDocumentCodePage(int codePage) { documentCodePage_ = codePage; }

    /// The index of a number's font; 0 for none.
    [[nodiscard]] std::uint16_t indexOf(std::int32_t number) const;

    /// What text in a font is in, and the font's name, empty for none.
    [[nodiscard]] int codePageAt(std::uint16_t index) const;
    [[nodiscard]] std::u16string_view nameAt(std::uint16_t index) const;

private:
    struct Font {
        std::u16string name;
        std::optional<std::int32_t> charset;
        std::optional<int> codePage;
    };

    [[nodiscard]] int codePageOf(const Font& font) const;

    int documentCodePage_ = kRtfDefaultCodePage;
    std::vector<Font> fonts_;
    /// The entry that is being filled; null between entries.
    Font* current_ = nullptr;
    /// Indices by number.
    std::vector<std::uint16_t> indices_;
    RtfDecoder decoder_;
};

/// Colours in the order of the document.
class RtfColors {
public:
    enum class Part : std::uint8_t { Red, Green, Blue };

    /// Sets a part of the entry that has begun, from 0 to 255.
    void set(Part part, std::int32_t value);

    /// Ends as many entries as there are semicolons.
    void append(std::string_view text);

    /// The index of the entry `number`: 0 for none and for the default colour.
    [[nodiscard]] std::uint16_t indexOf(std::int32_t number) const;

    /// Requires: `index` is an answer of indexOf and not 0.
    [[nodiscard]] Rgb at(std::uint16_t index) const;

private:
    /// A byte for each part, and one for whether there is any.
    std::vector<std::uint32_t> entries_;
    std::uint32_t entry_ = 0;
};

/// Lists of tabs by numbers, so that paragraphs hold no lists. 0 is the list of the platform.
class RtfTabs {
public:
    /// Returns the list that has `tab`, whose place is in twentieths of a point, behind those of
    /// `list`; `list` itself when there are too many.
    [[nodiscard]] std::uint16_t with(std::uint16_t list, std::int32_t place, TextAlignment kind);

    /// The tabs of a list; nothing for 0.
    [[nodiscard]] std::optional<std::vector<TextTab>> at(std::uint16_t list) const;

private:
    struct Tab {
        std::uint16_t before;
        std::int32_t place;
        TextAlignment kind;

        friend auto operator<=>(const Tab&, const Tab&) = default;
    };

    struct List {
        Tab last;
        std::size_t count;
    };

    [[nodiscard]] std::size_t countOf(std::uint16_t list) const {
        return list != 0 ? lists_[list - 1U].count : 0;
    }

    std::map<Tab, std::uint16_t> numbers_;
    /// From 1 on.
    std::vector<List> lists_;
};

}  // namespace platform
