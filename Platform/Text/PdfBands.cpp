#include "Platform/Text/PdfBands.h"

#include <algorithm>
#include <cstddef>

#include "Platform/Text/PdfGeometry.h"

namespace platform {
namespace {

/// The boxes of lines that are set close lie over one another by some of this share of their
/// height.
constexpr double kLoose = 0.2;
/// In sizes: the lines of one column are hardly ever closer, from top to top.
constexpr double kLeastLeading = 1;
/// How many fragments of a band one more is held against.
constexpr std::size_t kMostBeside = 16;

double topOf(const PdfBox& box) {
    return box.top + kLoose * heightOf(box);
}
double bottomOf(const PdfBox& box) {
    return box.bottom - kLoose * heightOf(box);
}

/// Puts one fragment after the other, by height, into bands.
class BandMaker {
public:
    BandMaker(std::span<const PdfFragment> fragments, double size)
        : fragments_(fragments), size_(size) {}

    void add(std::uint32_t number) {
        const PdfBox& box = fragments_[number].box;
        if (bands_.empty() || (topOf(box) >= bands_.back().bottom && !standsBesideLast(box))) {
            bands_.push_back({{}, topOf(box), bottomOf(box), {}});
        }
        PdfBand& band = bands_.back();
        band.numbers.push_back(number);
        band.bottom = std::max(band.bottom, bottomOf(box));
        band.intervals.push_back({box.left, box.right});
    }

    std::vector<PdfBand> finish() {
        for (PdfBand& band : bands_) {
            joinIntervals(band.intervals, kPdfColumnGap * size_);
        }
        return std::move(bands_);
    }

private:
    /// Whether a fragment that begins below the last band stands too close to its last line to be
    /// below it, and apart from all its lines.
    [[nodiscard]] bool standsBesideLast(const PdfBox& box) const {
        const std::vector<std::uint32_t>& numbers = bands_.back().numbers;
        return numbers.size() <= kMostBeside &&
               topOf(box) - topOf(fragments_[numbers.back()].box) < kLeastLeading * size_ &&
               std::all_of(numbers.begin(), numbers.end(), [&](std::uint32_t number) {
                   return gapAcross(fragments_[number].box, box) >= kPdfColumnGap * size_;
               });
    }

    std::span<const PdfFragment> fragments_;
    const double size_;
    std::vector<PdfBand> bands_;
};

}  // namespace

void joinIntervals(std::vector<PdfInterval>& intervals, double gap) {
    std::sort(intervals.begin(), intervals.end(),
              [](const PdfInterval& a, const PdfInterval& b) { return a.left < b.left; });
    std::size_t last = 0;
    for (std::size_t i = 1; i < intervals.size(); i++) {
        if (intervals[i].left - intervals[last].right < gap) {
            intervals[last].right = std::max(intervals[last].right, intervals[i].right);
        } else {
            intervals[++last] = intervals[i];
        }
    }
    intervals.resize(std::min(intervals.size(), last + 1));
}

std::vector<PdfBand> bandsOf(std::vector<std::uint32_t> part,
                             std::span<const PdfFragment> fragments, double size) {
    std::stable_sort(part.begin(), part.end(), [&](std::uint32_t a, std::uint32_t b) {
        return topOf(fragments[a].box) < topOf(fragments[b].box);
    });
    BandMaker maker(fragments, size);
    for (const std::uint32_t number : part) {
        maker.add(number);
    }
    return maker.finish();
}

}  // namespace platform
