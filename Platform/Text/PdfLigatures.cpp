#include "Platform/Text/PdfLigatures.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "Platform/Text/PdfGeometry.h"

namespace platform {
namespace {

/// In sizes: how exactly a glyph's widths are told where it stands several times; they are rounded.
constexpr double kExact = 0.001;

/// In sizes: how far a half's width is from the other's. The next letter, where it is set closer or
/// wider, moves the edge of the second one.
constexpr double kNearlyEqual = 0.012;

bool isLam(char32_t letter) {
    return letter == 0x644;
}
bool isAlef(char32_t letter) {
    return letter == 0x622 || letter == 0x623 || letter == 0x625 || letter == 0x627;
}

double relativeWidth(const PdfGlyph& glyph) {
    return widthOf(glyph.box) / glyph.size;
}

/// Whether lam stands directly on the left of alef.
bool isPair(const PdfGlyph& left, const PdfGlyph& right) {
    return isLam(left.character) && isAlef(right.character) &&
           std::abs(right.box.left - left.box.right) <= kExact * left.size;
}

/// The widths of glyphs, in ascending order.
class Widths {
public:
    explicit Widths(std::vector<double> widths) : widths_(std::move(widths)) {
        std::sort(widths_.begin(), widths_.end());
    }

    [[nodiscard]] bool hasExactly(double width) const {
        const auto next = std::lower_bound(widths_.begin(), widths_.end(), width - kExact);
        return next != widths_.end() && *next <= width + kExact;
    }

private:
    std::vector<double> widths_;
};

}  // namespace

void partLigatures(std::vector<PdfGlyph>& glyphs) {
    std::vector<std::size_t> pairs;
    std::vector<double> widths;
    for (std::size_t i = 0; i < glyphs.size(); i++) {
        if (!isLam(glyphs[i].character)) {
            continue;
        }
        if (i + 1 < glyphs.size() && isPair(glyphs[i], glyphs[i + 1])) {
            pairs.push_back(i);
        } else {
            widths.push_back(relativeWidth(glyphs[i]));
        }
    }
    const Widths ofWholeLams(std::move(widths));
    for (const std::size_t i : pairs) {
        const double width = relativeWidth(glyphs[i]);
        if (std::abs(width - relativeWidth(glyphs[i + 1])) <= kNearlyEqual &&
            !ofWholeLams.hasExactly(width)) {
            std::swap(glyphs[i].character, glyphs[i + 1].character);
        }
    }
}

}  // namespace platform
