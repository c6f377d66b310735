#include "Platform/Text/PdfFlow.h"

#include <algorithm>
#include <cmath>

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
/// In sizes: how exactly lines begin below one another.
constexpr double kSameStart = 0.5;
/// In sizes: a blank, and what a line may be set tighter than its neighbours.
constexpr double kRoom = 0.5;
/// In sizes: how exactly lines of full width end below one another, and how wide they are at least.
constexpr double kSameEnd = 0.15;
constexpr double kNarrowest = 6;

/// Of the spaces in a column, the one that is taken for its usual one: a fifth are narrower.
constexpr std::size_t kNarrowShare = 5;

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

}  // namespace

double leadingBetween(const PdfTextLine& above, const PdfTextLine& below) {
    return middleOf(below.line.box) - middleOf(above.line.box);
}

bool areOfOneSize(const PdfTextLine& first, const PdfTextLine& second) {
    const auto [small, large] = std::minmax(first.line.size, second.line.size);
    return large <= kSizeRatio * small;
}

bool areClose(const PdfTextLine& above, const PdfTextLine& below) {
    const double leading = leadingBetween(above, below);
    return areOfOneSize(above, below) && leading > kLeastLeading * below.line.size &&
           leading <= kMostLeading * below.line.size;
}

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

PdfFlow::PdfFlow(std::span<const PdfTextLine> lines, std::span<const PdfFont> fonts)
    : lines_(lines), fonts_(fonts) {
    beginsAtTheRight_ = areFlushRight();
    leadings_ = usualLeadings();
    markBlocks();
}

bool PdfFlow::hasRoomFor(std::size_t index, double width) const {
    const PdfTextLine& line = lines_[index];
    return ends_[blocks_[index]] - endOf(line) > width + kRoom * line.line.size;
}

bool PdfFlow::hasRoomInColumn(std::size_t index, double width) const {
    const PdfTextLine& line = lines_[index];
    return end_ - endOf(line) > width + kRoom * line.line.size;
}

bool PdfFlow::isFlush(std::size_t index) const {
    const PdfLine& line = lines_[index].line;
    const auto endsThere = [&](std::size_t other) {
        return std::abs(endOf(lines_[other]) - endOf(lines_[index])) <= kSameEnd * line.size;
    };
    return widthOf(line.box) >= kNarrowest * line.size &&
           ((index > 0 && endsThere(index - 1)) ||
            (index + 1 < lines_.size() && endsThere(index + 1)));
}

bool PdfFlow::isAlone(std::size_t index) const {
    return (index == 0 || !isInBlock(index)) &&
           (index + 1 == lines_.size() || !isInBlock(index + 1));
}

bool PdfFlow::shareFont(const PdfTextLine& first, const PdfTextLine& second) const {
    if (faceOf(first) == faceOf(second)) {
        return true;
    }
    const auto faces = facesOf(first, fonts_);
    const auto others = facesOf(second, fonts_);
    return std::find_first_of(faces.begin(), faces.end(), others.begin(), others.end()) !=
           faces.end();
}

/// Whether the lines read from the right and begin below one another there. Some writers set such
/// text from the left.
bool PdfFlow::areFlushRight() const {
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
        const double near = kSameStart * line.line.size;
        fromTheRight += line.text.readsFromTheRight ? 1 : 0;
        flushRight += right - line.line.box.right <= near ? 1 : 0;
        flushLeft += line.line.box.left - left <= near ? 1 : 0;
    }
    return 2 * fromTheRight > lines_.size() && flushRight >= flushLeft;
}

/// What is usual for lines that begin with each face; faces of other scripts are set wider.
std::map<std::uint32_t, double> PdfFlow::usualLeadings() const {
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

bool PdfFlow::isNext(const PdfTextLine& above, const PdfTextLine& below) const {
    return areClose(above, below) &&
           leadingBetween(above, below) <=
               kLeadingRatio * leadings_.at(faceOf(below)) * below.line.size;
}

/// Numbers the blocks and measures how far each reaches.
void PdfFlow::markBlocks() {
    end_ = -HUGE_VAL;
    for (std::size_t i = 0; i < lines_.size(); i++) {
        if (i == 0 || !isNext(lines_[i - 1], lines_[i])) {
            ends_.push_back(endOf(lines_[i]));
        }
        blocks_.push_back(ends_.size() - 1);
        ends_.back() = std::max(ends_.back(), endOf(lines_[i]));
        end_ = std::max(end_, endOf(lines_[i]));
    }
}

}  // namespace platform
