#include "Platform/Text/PdfParagraphs.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <string_view>

#include "Platform/Text/Modules/UnicodeModule.h"
#include "Platform/Text/PdfGeometry.h"

namespace platform {
namespace {

/// How much larger one line's size may be than another's of its paragraph.
constexpr double kSizeRatio = 1.15;
/// How much wider the space between lines may be than what is usual in the column.
constexpr double kLeadingRatio = 1.25;
/// In sizes: two lines are never farther apart, and never closer, from middle to middle.
constexpr double kMostLeading = 2.8;
constexpr double kLeastLeading = 0.4;
/// In sizes: what counts as an indent, and as standing in the middle.
constexpr double kIndent = 0.5;
constexpr double kCentred = 0.15;
/// In sizes: a blank, and what a line may be set tighter than its neighbours.
constexpr double kRoom = 0.5;

/// Of the spaces in a column, the one that is taken for its usual one: a fifth are narrower.
constexpr std::size_t kNarrowShare = 5;

bool isLetter(char32_t character) {
    return moduleFunctions<UnicodeFunctions>().isLetter(character);
}

bool isHyphen(char32_t character) {
    return character == U'-' || character == 0xAD || character == 0x2010;
}

bool isBullet(char32_t character) {
    constexpr std::u32string_view kBullets =
        U"\u2022\u2023\u2043\u25AA\u25AB\u25CF\u25CB\u25E6\u25A0\u25A1\u2756\u27A2";
    return kBullets.find(character) != std::u32string_view::npos;
}

/// Whether a character may end a sentence, or close what ends one.
bool endsSentence(char32_t character) {
    constexpr std::u32string_view kEnds =
        U".!?:;\u2026\u3002\uFF01\uFF1F\u061F\u06D4\u0964)]\"'\u201D\u2019\u00BB\u300D";
    return kEnds.find(character) != std::u32string_view::npos;
}

double leadingBetween(const PdfTextLine& above, const PdfTextLine& below) {
    return middleOf(below.line.box) - middleOf(above.line.box);
}

bool areOfOneSize(const PdfTextLine& first, const PdfTextLine& second) {
    const auto [small, large] = std::minmax(first.line.size, second.line.size);
    return large <= kSizeRatio * small;
}

/// The faces of a line's first few fonts.
std::vector<std::uint32_t> facesOf(const PdfTextLine& line, std::span<const PdfFont> fonts) {
    constexpr std::size_t kMost = 8;
    std::vector<std::uint32_t> faces;
    for (const PdfCharacter& character : line.text.characters) {
        const std::uint32_t face = fonts[character.font].face;
        if (faces.empty() || faces.back() != face) {
            faces.push_back(face);
            if (faces.size() == kMost) {
                break;
            }
        }
    }
    return faces;
}

/// Whether two lines are rows of a table: both have a wide gap at one place.
bool areRows(const PdfLine& above, const PdfLine& below) {
    auto gap = above.gaps.begin();
    for (const PdfGap& other : below.gaps) {
        while (gap != above.gaps.end() && gap->right <= other.left) {
            ++gap;
        }
        if (gap != above.gaps.end() &&
            std::min(gap->right, other.right) - std::max(gap->left, other.left) >
                kPdfColumnGap * below.size) {
            return true;
        }
    }
    return false;
}

/// The lines of one stretch of a column.
class Flow {
public:
    Flow(std::span<const PdfTextLine> lines, std::span<const PdfFont> fonts)
        : lines_(lines),
          fonts_(fonts),
          beginsAtTheRight_(areFlushRight()),
          leadings_(usualLeadings()) {
        markBlocks();
    }

    /// Notes for each line but the first whether it goes on with the paragraph of the one before.
    void decide(std::vector<bool>& goesOn) {
        bool isFirst = true;
        goesOn.push_back(false);
        for (std::size_t i = 1; i < lines_.size(); i++) {
            const bool joins = blocks_[i] == blocks_[i - 1] && continues(i, isFirst);
            goesOn.push_back(joins);
            isFirst = !joins;
        }
    }

    /// Whether a font of one line is also one of another's, in whatever size.
    [[nodiscard]] bool shareFont(const PdfTextLine& first, const PdfTextLine& second) const {
        if (faceOf(first) == faceOf(second)) {
            return true;
        }
        const auto faces = facesOf(first, fonts_);
        const auto others = facesOf(second, fonts_);
        return std::find_first_of(faces.begin(), faces.end(), others.begin(), others.end()) !=
               faces.end();
    }

    /// Whether the last line is as full as those above it.
    [[nodiscard]] bool endsFull(double startWidth) const {
        const std::size_t last = lines_.size() - 1;
        return last > 0 && blocks_[last] == blocks_[last - 1] && !hasRoomFor(last, startWidth);
    }

    /// Whether the first line begins where the second does.
    [[nodiscard]] bool beginsInside() const {
        return lines_.size() > 1 && areOfOneSize(lines_[0], lines_[1]) &&
               std::abs(startOf(lines_[0]) - startOf(lines_[1])) <= kIndent * lines_[0].line.size;
    }

private:
    /// Whether the lines read from the right and begin below one another there. Some writers set
    /// such text from the left.
    [[nodiscard]] bool areFlushRight() const {
        double left = HUGE_VAL;
        double right = -HUGE_VAL;
        for (const PdfTextLine& line : lines_) {
            left = std::min<double>(left, line.line.box.left);
            right = std::max<double>(right, line.line.box.right);
        }
        std::size_t fromTheRight = 0;
        std::size_t flushRight = 0;
        std::size_t flushLeft = 0;
        for (const PdfTextLine& line : lines_) {
            const double near = kIndent * line.line.size;
            fromTheRight += line.text.readsFromTheRight ? 1 : 0;
            flushRight += right - line.line.box.right <= near ? 1 : 0;
            flushLeft += line.line.box.left - left <= near ? 1 : 0;
        }
        return 2 * fromTheRight > lines_.size() && flushRight >= flushLeft;
    }

    [[nodiscard]] double startOf(const PdfTextLine& line) const {
        return beginsAtTheRight_ ? -line.line.box.right : line.line.box.left;
    }
    [[nodiscard]] double endOf(const PdfTextLine& line) const {
        return beginsAtTheRight_ ? -line.line.box.left : line.line.box.right;
    }

    [[nodiscard]] std::uint32_t faceOf(const PdfTextLine& line) const {
        return fonts_[line.text.characters.front().font].face;
    }

    /// What is usual for lines that begin with each face; faces of other scripts are set wider.
    [[nodiscard]] std::map<std::uint32_t, double> usualLeadings() const {
        std::map<std::uint32_t, std::vector<double>> found;
        for (std::size_t i = 1; i < lines_.size(); i++) {
            const double leading = leadingBetween(lines_[i - 1], lines_[i]);
            if (areOfOneSize(lines_[i - 1], lines_[i]) &&
                leading > kLeastLeading * lines_[i].line.size) {
                found[faceOf(lines_[i])].push_back(leading / lines_[i].line.size);
            }
        }
        std::map<std::uint32_t, double> usual;
        for (auto& [face, leadings] : found) {
            const auto place =
                leadings.begin() + static_cast<std::ptrdiff_t>(leadings.size() / kNarrowShare);
            std::nth_element(leadings.begin(), place, leadings.end());
            usual[face] = *place;
        }
        return usual;
    }

    [[nodiscard]] bool isNext(const PdfTextLine& above, const PdfTextLine& below) const {
        const double size = below.line.size;
        const double leading = leadingBetween(above, below);
        return areOfOneSize(above, below) && leading > kLeastLeading * size &&
               leading <= kMostLeading * size &&
               leading <= kLeadingRatio * leadings_.at(faceOf(below)) * size;
    }

    /// Numbers the stretches of lines that are set alike, and measures how far each reaches.
    void markBlocks() {
        for (std::size_t i = 0; i < lines_.size(); i++) {
            if (i == 0 || !isNext(lines_[i - 1], lines_[i])) {
                ends_.push_back(endOf(lines_[i]));
            }
            blocks_.push_back(ends_.size() - 1);
            ends_.back() = std::max(ends_.back(), endOf(lines_[i]));
        }
    }

    [[nodiscard]] bool hasRoomFor(std::size_t index, double width) const {
        const PdfTextLine& line = lines_[index];
        return ends_[blocks_[index]] - endOf(line) > width + kRoom * line.line.size;
    }

    /// Whether a line goes on with the one above it, which is set alike. `isFirst`: that one begins
    /// a paragraph.
    [[nodiscard]] bool continues(std::size_t index, bool isFirst) const {
        const PdfTextLine& above = lines_[index - 1];
        const PdfTextLine& line = lines_[index];
        if (endsInBrokenWord(above.text) && isLetter(line.text.characters.front().character)) {
            return true;
        }
        if (areRows(above.line, line.line) || isBullet(line.text.characters.front().character) ||
            !shareFont(above, line) || hasRoomFor(index - 1, line.text.startWidth)) {
            return false;
        }
        const double size = line.line.size;
        const double indent = startOf(line) - startOf(above);
        const bool isCentred =
            std::abs(centreOf(line.line.box) - centreOf(above.line.box)) <= kCentred * size;
        if (std::abs(indent) <= kIndent * size || isCentred) {
            return true;
        }
        return isFirst && (indent < 0 || isHanging(index));
    }

    /// Whether a line that begins farther in than the first of its paragraph is one of several.
    [[nodiscard]] bool isHanging(std::size_t index) const {
        const PdfTextLine& first = lines_[index - 1];
        if (isBullet(first.text.characters.front().character)) {
            return true;
        }
        return index + 1 < lines_.size() && blocks_[index + 1] == blocks_[index] &&
               std::abs(startOf(lines_[index + 1]) - startOf(lines_[index])) <=
                   kIndent * first.line.size;
    }

    std::span<const PdfTextLine> lines_;
    std::span<const PdfFont> fonts_;
    const bool beginsAtTheRight_;
    /// In sizes, by face.
    const std::map<std::uint32_t, double> leadings_;
    /// The block of each line, and where each block's longest line ends.
    std::vector<std::size_t> blocks_;
    std::vector<double> ends_;
};

/// Whether a paragraph goes on from one column, whose last line is `last`, at the top of the next.
bool goesOnInColumn(const Flow& flow, const PdfTextLine& last, const Flow& next,
                    const PdfTextLine& first) {
    if (leadingBetween(last, first) >= 0 || !areOfOneSize(last, first)) {
        return false;
    }
    if (endsInBrokenWord(last.text)) {
        return isLetter(first.text.characters.front().character);
    }
    return flow.shareFont(last, first) && flow.endsFull(first.text.startWidth) &&
           next.beginsInside() && !endsSentence(last.text.characters.back().character);
}

}  // namespace

bool endsInBrokenWord(const PdfLineText& text) {
    const std::size_t count = text.characters.size();
    return count > 1 && isHyphen(text.characters[count - 1].character) &&
           isLetter(text.characters[count - 2].character);
}

std::vector<bool> linesThatGoOn(std::span<const PdfTextLine> lines,
                                std::span<const std::size_t> flows,
                                std::span<const PdfFont> fonts) {
    std::vector<bool> goesOn;
    goesOn.reserve(lines.size());
    std::optional<Flow> before;
    for (const std::size_t count : flows) {
        const std::size_t start = goesOn.size();
        Flow flow(lines.subspan(start, count), fonts);
        flow.decide(goesOn);
        goesOn[start] = before && goesOnInColumn(*before, lines[start - 1], flow, lines[start]);
        before.emplace(std::move(flow));
    }
    return goesOn;
}

}  // namespace platform
