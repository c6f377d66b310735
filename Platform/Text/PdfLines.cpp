#include "Platform/Text/PdfLines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "Platform/Text/PdfBlanks.h"
#include "Platform/Text/PdfDirection.h"
#include "Platform/Text/PdfGeometry.h"

namespace platform {
namespace {

/// In the larger one's sizes: fragments may lie so far over one another and stand in one line all
/// the same, but no more than the smaller one's size.
constexpr double kOverlap = 0.3;
/// In sizes: those that are farther apart must stand at the same height.
constexpr double kNear = 3;
/// In heights: how exact that is.
constexpr double kSameHeight = 0.25;

/// How many lines a fragment is held against, and how many fragments of each. Pages where that is
/// not enough make no sense anyway, and each fragment costs the same.
constexpr std::size_t kOpenLines = 24;
constexpr std::size_t kCheckedFragments = 48;

bool standOverEachOther(const PdfFragment& first, const PdfFragment& second) {
    const double over = -gapAcross(first.box, second.box);
    return (over > kOverlap * std::max(first.size, second.size) ||
            over > std::min(first.size, second.size)) &&
           !first.isOfMarks && !second.isOfMarks;
}

/// Whether two fragments that don't stand over each other stand in one line.
bool belongTogether(const PdfFragment& first, const PdfFragment& second) {
    if (!areLevel(first.box, second.box)) {
        return false;
    }
    const double gap = gapAcross(first.box, second.box);
    const double height = std::min(heightOf(first.box), heightOf(second.box));
    return first.piece == second.piece || gap <= kNear * std::max(first.size, second.size) ||
           std::abs(middleOf(first.box) - middleOf(second.box)) <= kSameHeight * height;
}

/// Puts one fragment after the other, by height, into lines.
class LineMaker {
public:
    explicit LineMaker(std::span<const PdfFragment> fragments) : fragments_(fragments) {}

    void add(std::uint32_t number) {
        PdfLine* const line = lineFor(fragments_[number]);
        if (line != nullptr) {
            line->fragments.push_back(number);
        } else {
            lines_.push_back({{number}, {}, {}, 1});
        }
    }

    std::vector<PdfLine> finish() {
        for (PdfLine& line : lines_) {
            std::stable_sort(line.fragments.begin(), line.fragments.end(),
                             [&](std::uint32_t first, std::uint32_t second) {
                                 return fragments_[first].box.left < fragments_[second].box.left;
                             });
            measure(line);
        }
        return std::move(lines_);
    }

private:
    PdfLine* lineFor(const PdfFragment& fragment) {
        const std::size_t first = lines_.size() - std::min(lines_.size(), kOpenLines);
        PdfLine* found = nullptr;
        for (std::size_t i = lines_.size(); i > first; i--) {
            PdfLine& line = lines_[i - 1];
            if (fits(line, fragment)) {
                found = &line;
                if (!isMuchLarger(fragment.size, fragments_[line.fragments.front()].size)) {
                    break;
                }
            }
        }
        return found;
    }

    /// Whether a fragment stands beside one of a line's, and over none of them.
    [[nodiscard]] bool fits(const PdfLine& line, const PdfFragment& fragment) const {
        bool hasNeighbour = false;
        const std::size_t count = line.fragments.size();
        for (std::size_t i = count - std::min(count, kCheckedFragments); i < count; i++) {
            const PdfFragment& other = fragments_[line.fragments[i]];
            if (standOverEachOther(other, fragment)) {
                return false;
            }
            hasNeighbour = hasNeighbour || belongTogether(other, fragment);
        }
        return hasNeighbour;
    }

    void measure(PdfLine& line) const {
        double most = -1;
        for (const std::uint32_t number : line.fragments) {
            const PdfFragment& fragment = fragments_[number];
            if (widthOf(fragment.box) > most) {
                most = widthOf(fragment.box);
                line.size = fragment.size;
                line.box = fragment.box;
            }
        }
        line.box.left = line.box.right = fragments_[line.fragments.front()].box.left;
        line.hasTallCapital = line.fragments.size() > 1 &&
                              isMuchLarger(fragments_[line.fragments.front()].size, line.size);
        for (const std::uint32_t number : line.fragments) {
            const PdfBox& box = fragments_[number].box;
            if (box.left - line.box.right > kPdfColumnGap * line.size) {
                line.gaps.push_back({line.box.right, box.left});
            }
            line.box.right = std::max(line.box.right, box.right);
        }
        if (line.hasTallCapital) {
            line.box.left = fragments_[line.fragments[1]].box.left;
        }
    }

    std::span<const PdfFragment> fragments_;
    std::vector<PdfLine> lines_;
};

/// The size of the word with most characters; small marks and capitals don't count for a line.
double sizeOf(std::span<const PdfWord> words, std::span<const PdfGlyph> glyphs) {
    const auto longest = std::max_element(
        words.begin(), words.end(),
        [](const PdfWord& a, const PdfWord& b) { return a.end - a.first < b.end - b.first; });
    return glyphs[longest->first].size;
}

bool areMarks(std::span<const PdfWord> words, std::span<const PdfGlyph> glyphs) {
    return std::all_of(words.begin(), words.end(), [&](const PdfWord& word) {
        const auto own = glyphs.subspan(word.first, word.end - word.first);
        return std::all_of(own.begin(), own.end(),
                           [](const PdfGlyph& glyph) { return isPdfMark(glyph.character); });
    });
}

}  // namespace

std::vector<PdfFragment> fragmentsOf(std::span<const PdfWord> words,
                                     std::span<const PdfGlyph> glyphs) {
    std::vector<PdfFragment> fragments;
    for (std::uint32_t i = 0; i < words.size(); i++) {
        const double gap = kPdfColumnGap * glyphs[words[i].first].size;
        if (fragments.empty() || words[i].piece != fragments.back().piece ||
            gapAcross(words[i - 1].box, words[i].box) > gap ||
            !areLevel(fragments.back().box, words[i].box)) {
            fragments.push_back({i, i + 1, words[i].piece, 1, words[i].box});
        } else {
            fragments.back().end = i + 1;
            // A mark may stand on a letter of another piece.
            if (!areMarks(words.subspan(i, 1), glyphs)) {
                fragments.back().box = hullOf(fragments.back().box, words[i].box);
            }
        }
    }
    for (PdfFragment& fragment : fragments) {
        const auto own = words.subspan(fragment.first, fragment.end - fragment.first);
        fragment.size = sizeOf(own, glyphs);
        fragment.isOfMarks = areMarks(own, glyphs);
    }
    return fragments;
}

std::vector<PdfLine> linesOf(std::span<const std::uint32_t> flow,
                             std::span<const PdfFragment> fragments) {
    std::vector<std::uint32_t> byHeight(flow.begin(), flow.end());
    std::stable_sort(byHeight.begin(), byHeight.end(),
                     [&](std::uint32_t first, std::uint32_t second) {
                         return middleOf(fragments[first].box) < middleOf(fragments[second].box);
                     });
    LineMaker maker(fragments);
    for (const std::uint32_t number : byHeight) {
        maker.add(number);
    }
    return maker.finish();
}

}  // namespace platform
