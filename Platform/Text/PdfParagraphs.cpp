#include "Platform/Text/PdfParagraphs.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include "Platform/Text/Modules/UnicodeModule.h"
#include "Platform/Text/PdfBlanks.h"
#include "Platform/Text/PdfGeometry.h"
#include "Platform/Text/PdfItems.h"

namespace platform {
namespace {

/// In sizes: what counts as an indent, and as standing in the middle.
constexpr double kIndent = 0.5;
constexpr double kCentred = 0.15;
/// In sizes: how much more room than its rest needs may be left beside a word that was broken.
constexpr double kLooseEnd = 2.5;

bool isLetter(char32_t character) {
    return moduleFunctions<UnicodeFunctions>().isLetter(character);
}

/// Whether a character may end a sentence, or close what ends one.
bool endsSentence(char32_t character) {
    constexpr std::u32string_view kEnds =
        U".!?:;\u2026\u3002\uFF01\uFF1F\u061F\u06D4\u0964)]\"'\u201D\u2019\u00BB\u300D";
    return kEnds.find(character) != std::u32string_view::npos;
}

/// Whether a line that ends in a hyphen ends there because it is full for a word whose rest takes
/// `width`. What still had room was not broken.
bool isFull(const PdfFlow& flow, std::size_t index, double width) {
    const double needed = width + kLooseEnd * flow.line(index).line.size;
    return flow.isFlush(index) || !(flow.isAlone(index) ? flow.hasRoomInColumn(index, needed)
                                                        : flow.hasRoomFor(index, needed));
}

/// Whether a line begins with the rest of the word that the line above it ends with. It may stand
/// farther down, too, where something tall stands in it.
bool goesOnWithWord(const PdfFlow& flow, std::size_t index) {
    const PdfTextLine& above = flow.line(index - 1);
    const PdfTextLine& line = flow.line(index);
    if (!endsInBrokenWord(above.text) || !isLetter(line.text.characters.front().character) ||
        areRows(above.line, line.line) || !isFull(flow, index - 1, line.text.startWidth)) {
        return false;
    }
    return flow.isInBlock(index) ||
           (areClose(above, line) && flow.indent(index, index - 1) <= kIndent * line.line.size);
}

/// The paragraphs of one flow.
class Paragraphs {
public:
    explicit Paragraphs(const PdfFlow& flow)
        : flow_(flow), beginItems_(linesThatBeginItems(flow)) {}

    /// Notes for each line whether it goes on with the paragraph of the one before; the first does
    /// not.
    void decide(std::vector<bool>& goesOn) const {
        bool isFirst = true;
        bool isBesideCapital = flow_.line(0).line.hasTallCapital;
        goesOn.push_back(false);
        for (std::size_t i = 1; i < flow_.count(); i++) {
            const PdfLine& line = flow_.line(i).line;
            const bool joins = continues(i, isFirst);
            goesOn.push_back(joins);
            isBesideCapital =
                line.hasTallCapital || (joins && isBesideCapital &&
                                        std::abs(flow_.indent(i, i - 1)) <= kIndent * line.size);
            isFirst = !joins || isBesideCapital;
        }
    }

private:
    /// Whether a line goes on with the paragraph of the one above it. `isFirst`: that one begins
    /// it, or stands beside the tall capital that does.
    [[nodiscard]] bool continues(std::size_t index, bool isFirst) const {
        const PdfTextLine& above = flow_.line(index - 1);
        const PdfTextLine& line = flow_.line(index);
        if (beginItems_[index]) {
            return false;
        }
        if (goesOnWithWord(flow_, index)) {
            return true;
        }
        if (!flow_.isInBlock(index) || areRows(above.line, line.line) || endsInLeader(above.text) ||
            !flow_.shareFont(above, line) || flow_.hasRoomFor(index - 1, line.text.startWidth)) {
            return false;
        }
        const double size = line.line.size;
        const double indent = flow_.indent(index, index - 1);
        const bool isCentred =
            std::abs(centreOf(line.line.box) - centreOf(above.line.box)) <= kCentred * size;
        if (std::abs(indent) <= kIndent * size || isCentred) {
            return true;
        }
        return isFirst && (indent < 0 || isHanging(index));
    }

    /// Whether a line that begins farther in than the first of its paragraph is one of several, or
    /// belongs to an item.
    [[nodiscard]] bool isHanging(std::size_t index) const {
        return beginItems_[index - 1] || (index + 1 < flow_.count() && flow_.isInBlock(index + 1) &&
                                          std::abs(flow_.indent(index + 1, index)) <=
                                              kIndent * flow_.line(index - 1).line.size);
    }

    const PdfFlow& flow_;
    const std::vector<bool> beginItems_;
};

/// Whether the last line is as full as those above it.
bool endsFull(const PdfFlow& flow, double startWidth) {
    const std::size_t last = flow.count() - 1;
    return last > 0 && flow.isInBlock(last) && !flow.hasRoomFor(last, startWidth);
}

/// Whether the first line begins where the second does.
bool beginsInside(const PdfFlow& flow) {
    return flow.count() > 1 && areOfOneSize(flow.line(0), flow.line(1)) &&
           std::abs(flow.indent(0, 1)) <= kIndent * flow.line(0).line.size;
}

/// Whether a paragraph goes on from one column at the top of the next.
bool goesOnInColumn(const PdfFlow& flow, const PdfFlow& next) {
    const PdfTextLine& last = flow.line(flow.count() - 1);
    const PdfTextLine& first = next.line(0);
    if (leadingBetween(last, first) >= 0 || !areOfOneSize(last, first)) {
        return false;
    }
    if (endsInBrokenWord(last.text)) {
        return isLetter(first.text.characters.front().character) &&
               isFull(flow, flow.count() - 1, first.text.startWidth);
    }
    return flow.shareFont(last, first) && endsFull(flow, first.text.startWidth) &&
           beginsInside(next) && !endsSentence(last.text.characters.back().character);
}

}  // namespace

bool endsInBrokenWord(const PdfLineText& text) {
    const std::size_t count = text.characters.size();
    return count > 1 && isPdfHyphen(text.characters[count - 1].character) &&
           isLetter(text.characters[count - 2].character);
}

std::vector<bool> linesThatGoOn(std::span<const PdfTextLine> lines,
                                std::span<const std::size_t> flows,
                                std::span<const PdfFont> fonts) {
    std::vector<bool> goesOn;
    goesOn.reserve(lines.size());
    std::optional<PdfFlow> before;
    for (const std::size_t count : flows) {
        const std::size_t start = goesOn.size();
        PdfFlow flow(lines.subspan(start, count), fonts);
        Paragraphs(flow).decide(goesOn);
        goesOn[start] = before && goesOnInColumn(*before, flow);
        before.emplace(std::move(flow));
    }
    return goesOn;
}

}  // namespace platform
