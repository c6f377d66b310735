// How the lines of one stretch of a column are set.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "Platform/Text/PdfLineText.h"
#include "Platform/Text/PdfLines.h"

namespace platform {

/// A line with what it says.
struct PdfTextLine {
    PdfLine line;
    PdfLineText text;
};

/// From middle to middle.
[[nodiscard]] double leadingBetween(const PdfTextLine& above, const PdfTextLine& below);

/// Whether two lines have one size, or nearly so.
[[nodiscard]] bool areOfOneSize(const PdfTextLine& first, const PdfTextLine& second);

/// Whether two lines have one size and stand as close as lines of one text do.
[[nodiscard]] bool areClose(const PdfTextLine& above, const PdfTextLine& below);

/// Whether two lines are rows of a table: both have a wide gap at one place.
[[nodiscard]] bool areRows(const PdfLine& above, const PdfLine& below);

/// The lines of one stretch of a column, from the top. Its blocks are the stretches of lines that
/// have one size and the space between them that is usual.
class PdfFlow {
public:
    /// The lines and fonts must outlive it.
    PdfFlow(std::span<const PdfTextLine> lines, std::span<const PdfFont> fonts);

    [[nodiscard]] std::size_t count() const { return lines_.size(); }
    [[nodiscard]] const PdfTextLine& line(std::size_t index) const { return lines_[index]; }

    /// Whether a line stands in the block of the one above it, which there must be.
    [[nodiscard]] bool isInBlock(std::size_t index) const {
        return blocks_[index] == blocks_[index - 1];
    }

    /// How much farther in one line begins than another.
    [[nodiscard]] double indent(std::size_t index, std::size_t other) const {
        return startOf(lines_[index]) - startOf(lines_[other]);
    }

    /// Whether a line is so much shorter than its block's longest that `width` would have had room;
    /// and the same with regard to the longest of all.
    [[nodiscard]] bool hasRoomFor(std::size_t index, double width) const;
    [[nodiscard]] bool hasRoomInColumn(std::size_t index, double width) const;

    /// Whether a line of text ends where one beside it ends, as lines of full width do, also
    /// where a picture leaves them less of it.
    [[nodiscard]] bool isFlush(std::size_t index) const;

    /// Whether no line beside it stands in a line's block.
    [[nodiscard]] bool isAlone(std::size_t index) const;

    /// Whether a font of one line is also one of another's, in whatever size.
    [[nodiscard]] bool shareFont(const PdfTextLine& first, const PdfTextLine& second) const;

private:
    [[nodiscard]] bool areFlushRight() const;
    [[nodiscard]] std::map<std::uint32_t, double> usualLeadings() const;
    [[nodiscard]] bool isNext(const PdfTextLine& above, const PdfTextLine& below) const;
    void markBlocks();

    [[nodiscard]] double startOf(const PdfTextLine& line) const {
        return beginsAtTheRight_ ? -line.line.box.right : line.line.box.left;
    }
    [[nodiscard]] double endOf(const PdfTextLine& line) const {
        return beginsAtTheRight_ ? -line.line.box.left : line.line.box.right;
    }
    [[nodiscard]] std::uint32_t faceOf(const PdfTextLine& line) const {
        return fonts_[line.text.characters.front().font].face;
    }

    std::span<const PdfTextLine> lines_;
    std::span<const PdfFont> fonts_;
    bool beginsAtTheRight_ = false;
    /// What is usual for lines that begin with each face, in sizes.
    std::map<std::uint32_t, double> leadings_;
    /// The block of each line, and where each block's longest line ends, and the longest of all.
    std::vector<std::size_t> blocks_;
    std::vector<double> ends_;
    double end_ = 0;
};

}  // namespace platform
