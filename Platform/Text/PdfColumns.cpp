#include "Platform/Text/PdfColumns.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "Platform/Text/PdfBands.h"
#include "Platform/Text/PdfGeometry.h"

namespace platform {
namespace {

using Numbers = std::vector<std::uint32_t>;

/// Columns in columns in columns are enough.
constexpr int kDeepest = 6;
/// No page has more columns side by side.
constexpr std::size_t kMostIntervals = 64;

/// In sizes: columns don't go on below a white space of this height, and what stands above them
/// alone belongs to one of them only when it is nearer.
constexpr double kWhiteSpace = 2.5;
constexpr double kNearAbove = 1.2;
/// In sizes: the narrowest column of text, and how much of it lines fill. Cells of tables have
/// less.
constexpr double kNarrowest = 6;
constexpr double kFilled = 0.4;
constexpr int kFewestRows = 2;

/// Finds the columns of a part of a page.
class ColumnFinder {
public:
    ColumnFinder(std::span<const PdfFragment> fragments, bool readsFromTheRight,
                 std::vector<Numbers>& flows)
        : fragments_(fragments), readsFromTheRight_(readsFromTheRight), flows_(flows) {}

    void read(Numbers part, int depth) {
        if (part.empty()) {
            return;
        }
        size_ = medianSize(part);
        const std::vector<PdfBand> bands = bandsOf(part, fragments_, size_);
        if (depth == kDeepest || bands.size() == part.size()) {
            flows_.push_back(std::move(part));
            return;
        }
        Numbers flow;
        std::size_t open = 0;
        std::size_t at = 0;
        while (at < bands.size()) {
            const std::size_t end = endOfRun(bands, at);
            std::vector<PdfInterval> columns = columnsOf(bands, at, end);
            if (columns.size() < 2) {
                // Where one row of several has no columns, none has.
                at = std::max(at + 1, end);
                continue;
            }
            const std::size_t start = startAbove(bands, open, at, columns);
            for (; open < start; open++) {
                append(bands[open], flow);
            }
            flush(flow);
            readColumns(bands, start, end, columns, depth);
            at = open = end;
        }
        for (; open < bands.size(); open++) {
            append(bands[open], flow);
        }
        flush(flow);
    }

private:
    static void append(const PdfBand& band, Numbers& flow) {
        flow.insert(flow.end(), band.numbers.begin(), band.numbers.end());
    }

    void flush(Numbers& flow) {
        if (!flow.empty()) {
            flows_.push_back(std::exchange(flow, {}));
        }
    }

    [[nodiscard]] double medianSize(const Numbers& part) const {
        std::vector<double> sizes;
        sizes.reserve(part.size());
        for (const std::uint32_t number : part) {
            sizes.push_back(fragments_[number].size);
        }
        const auto middle = sizes.begin() + static_cast<std::ptrdiff_t>(sizes.size() / 2);
        std::nth_element(sizes.begin(), middle, sizes.end());
        return *middle;
    }

    [[nodiscard]] double gap() const { return kPdfColumnGap * size_; }

    /// Where the bands end that have a gap in common with the one at `start`; `start` when that has
    /// none.
    [[nodiscard]] std::size_t endOfRun(const std::vector<PdfBand>& bands, std::size_t start) const {
        std::vector<PdfInterval> run = bands[start].intervals;
        if (run.size() < 2) {
            return start;
        }
        std::size_t end = start + 1;
        for (; end < bands.size(); end++) {
            if (bands[end].top - bands[end - 1].bottom > kWhiteSpace * size_) {
                break;
            }
            run.insert(run.end(), bands[end].intervals.begin(), bands[end].intervals.end());
            joinIntervals(run, gap());
            if (run.size() < 2 || run.size() > kMostIntervals) {
                break;
            }
        }
        return end;
    }

    /// Where the columns of text lie in some bands; fewer than two when these are none.
    [[nodiscard]] std::vector<PdfInterval> columnsOf(const std::vector<PdfBand>& bands,
                                                     std::size_t start, std::size_t end) const {
        std::vector<PdfInterval> parts;
        for (std::size_t i = start; i < end; i++) {
            parts.insert(parts.end(), bands[i].intervals.begin(), bands[i].intervals.end());
        }
        joinIntervals(parts, gap());
        if (parts.size() > kMostIntervals) {
            return {};
        }
        std::vector<PdfInterval> columns;
        bool goesOn = false;
        for (const PdfInterval& part : parts) {
            if (goesOn) {
                columns.back().right = part.right;
            } else {
                columns.push_back(part);
            }
            // What is too narrow for text belongs to what stands behind it.
            goesOn = !isText(bands, start, end, columns.back());
        }
        if (goesOn && columns.size() > 1) {
            const double right = columns.back().right;
            columns.pop_back();
            columns.back().right = right;
        }
        return columns;
    }

    /// Whether the fragments of some bands inside an interval look like a column of text.
    [[nodiscard]] bool isText(const std::vector<PdfBand>& bands, std::size_t start, std::size_t end,
                              const PdfInterval& interval) const {
        if (interval.right - interval.left < kNarrowest * size_) {
            return false;
        }
        int rows = 0;
        double written = 0;
        double middle = 0;
        for (std::size_t i = start; i < end; i++) {
            for (const std::uint32_t number : bands[i].numbers) {
                const PdfBox& box = fragments_[number].box;
                if (box.left < interval.left || box.right > interval.right) {
                    continue;
                }
                if (rows == 0 || box.top >= middle) {
                    rows++;
                    middle = middleOf(box);
                }
                written += widthOf(box);
            }
        }
        return rows >= kFewestRows && written >= kFilled * rows * (interval.right - interval.left);
    }

    /// The first of the bands above `start` that belong to a column: each is close to what it
    /// stands on and reaches into no other column.
    [[nodiscard]] std::size_t startAbove(const std::vector<PdfBand>& bands, std::size_t open,
                                         std::size_t start,
                                         const std::vector<PdfInterval>& columns) const {
        while (start > open) {
            const PdfBand& band = bands[start - 1];
            const bool isClose = bands[start].top - band.bottom <= kNearAbove * size_;
            const bool isInside =
                std::any_of(columns.begin(), columns.end(), [&](const PdfInterval& column) {
                    return band.intervals.front().left >= column.left - gap() / 2 &&
                           band.intervals.back().right <= column.right + gap() / 2;
                });
            if (!isClose || !isInside) {
                break;
            }
            start--;
        }
        return start;
    }

    void readColumns(const std::vector<PdfBand>& bands, std::size_t start, std::size_t end,
                     const std::vector<PdfInterval>& columns, int depth) {
        std::vector<Numbers> parts(columns.size());
        for (std::size_t i = start; i < end; i++) {
            for (const std::uint32_t number : bands[i].numbers) {
                const double centre = centreOf(fragments_[number].box);
                std::size_t column = 0;
                while (column + 1 < columns.size() && centre > columns[column].right) {
                    column++;
                }
                parts[column].push_back(number);
            }
        }
        if (readsFromTheRight_) {
            std::reverse(parts.begin(), parts.end());
        }
        for (Numbers& part : parts) {
            ColumnFinder(fragments_, readsFromTheRight_, flows_).read(std::move(part), depth + 1);
        }
    }

    std::span<const PdfFragment> fragments_;
    const bool readsFromTheRight_;
    std::vector<Numbers>& flows_;
    double size_ = 1;
};

}  // namespace

std::vector<std::vector<std::uint32_t>> flowsOf(std::span<const PdfFragment> fragments,
                                                bool readsFromTheRight) {
    std::vector<Numbers> flows;
    Numbers all(fragments.size());
    std::iota(all.begin(), all.end(), 0U);
    ColumnFinder(fragments, readsFromTheRight, flows).read(std::move(all), 0);
    return flows;
}

}  // namespace platform
