// A page's text while it grows, with the looks of its runs.
//
// Blanks are folded as a browser shows them: any number is one, and none stands at the start or the
// end of a line. Where the ends of lines in the source stand between East Asian characters, not
// even one is left. One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/HtmlAttributes.h"

namespace platform {

/// Takes pieces of text and what separates them. A look is the number that HtmlAttributes has for
/// it.
class HtmlText {
public:
    /// Text behind the run number `mostRuns` has no attributes.
    explicit HtmlText(std::size_t mostRuns) : mostRuns_(mostRuns) {}

    /// Makes room, so that the text is not moved while it grows.
    void reserve(std::size_t length) { text_.reserve(length); }

    /// Appends text in UTF-8, which must be sound.
    void append(std::string_view utf8, std::uint32_t look);

    /// Appends text whose blanks and line ends count.
    void appendPreformatted(std::string_view utf8, std::uint32_t look);

    /// Has a blank between the text before and the text that follows, if both are of one line.
    void separate(std::uint32_t look);

    /// Ends a line inside its paragraph.
    void breakLine(std::uint32_t look);

    /// Ends a paragraph, unless none has begun.
    void endParagraph(std::uint32_t look);

    /// Says what stands before the next text of a paragraph; behind what is said already.
    void addMarker(std::u16string_view marker) { marker_ += marker; }
    void dropMarker() { marker_.clear(); }

    /// Begins and ends tables, one in another, and what they consist of. Text of two cells has a
    /// tab between it, and each row is a paragraph. Cells are for tables alone.
    void beginTable();
    void beginRow(std::uint32_t look);
    void beginCell();
    void endCell();
    void endTable(std::uint32_t look);
    [[nodiscard]] bool isInTable() const { return !rows_.empty(); }

    [[nodiscard]] std::size_t length() const { return text_.size(); }

    /// The text with its attributes, once.
    [[nodiscard]] AttributedString finish(const HtmlAttributes& attributes);

private:
    struct Run {
        std::size_t length;
        std::uint32_t look;
    };
    /// Where the row of a table that is open began.
    struct Row {
        std::size_t start;
    };

    std::size_t noteBlanks(std::string_view utf8, std::uint32_t look);
    void beginText(char16_t first, std::uint32_t look);
    void separateCells(std::uint32_t look);
    void add(std::u16string_view units, std::uint32_t look);
    void addCharacters(std::string_view utf8, std::uint32_t look);
    void addRun(std::size_t length, std::uint32_t look);

    const std::size_t mostRuns_;
    std::u16string text_;
    std::vector<Run> runs_;
    std::vector<Row> rows_;
    std::u16string marker_;
    /// Cells that have ended since the last text of the row.
    std::size_t endedCells_ = 0;
    /// Whether a blank would be the first of its line.
    bool isAtStart_ = true;
    /// A blank that is written when text follows, and its look.
    bool hasBlank_ = false;
    bool hasLineEnd_ = false;
    std::uint32_t blankLook_ = 0;
    /// Whether the last unit of preformatted text was the first half of a line end.
    bool isBehindReturn_ = false;
};

}  // namespace platform
