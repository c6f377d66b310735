#include "Platform/Text/PdfLineText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "Platform/Text/PdfDirection.h"
#include "Platform/Text/PdfGeometry.h"

namespace platform {
namespace {

/// In sizes: how far to the right of its place a mark is drawn that has no width.
constexpr double kMarkCentre = 0.35;
constexpr double kNoWidth = 0.01;
/// In sizes: what goes together into the next line where no blank tells.
constexpr double kWideStart = 2;
constexpr double kLongestThaiWord = 5;

bool endsSentence(char32_t character) {
    constexpr std::u32string_view kEnds = U".,:;!?\u2026\u060C\u061B\u061F\u06D4";
    return kEnds.find(character) != std::u32string_view::npos;
}

/// A line whose words come in the order in which they stand.
class StraightLine {
public:
    StraightLine(const PdfLineSource& source, std::span<const std::uint32_t> words)
        : source_(source), words_(words) {}

    PdfLineText text() {
        PdfLineText text;
        text.characters.reserve(lengthWithBlanks());
        bool isStart = true;
        for (std::size_t i = 0; i < words_.size(); i++) {
            const PdfWord& word = source_.words[words_[i]];
            if (i > 0 && hasBlankBefore(i)) {
                text.characters.push_back({U' ', text.characters.back().font});
                isStart = false;
            }
            if (isStart) {
                text.startWidth += widthOf(word.box);
            }
            for (const PdfGlyph& glyph : glyphsOf(word)) {
                text.characters.push_back({glyph.character, glyph.font});
            }
        }
        text.startWidth = std::min(text.startWidth, widestStart());
        text.isBehindBullet = source_.words[words_.front()].isBehindBullet;
        return text;
    }

private:
    [[nodiscard]] std::span<const PdfGlyph> glyphsOf(const PdfWord& word) const {
        return std::span(source_.page.glyphs).subspan(word.first, word.end - word.first);
    }

    [[nodiscard]] std::size_t lengthWithBlanks() const {
        std::size_t length = 0;
        for (const std::uint32_t number : words_) {
            length += glyphsOf(source_.words[number]).size() + 1;
        }
        return length;
    }

    /// How much must go together into the next line where the script has no blanks.
    [[nodiscard]] double widestStart() const {
        const auto word = glyphsOf(source_.words[words_.front()]);
        if (!beginsWithoutBlanks(word)) {
            return HUGE_VAL;
        }
        const bool isThai =
            !isIdeographic(word.front().character) && standsWithoutBlanks(word.front().character);
        return (isThai ? kLongestThaiWord : kWideStart) * word.front().size;
    }

    [[nodiscard]] bool hasBlankBefore(std::size_t index) const {
        return hasBlankBetween(source_.words[words_[index - 1]], source_.words[words_[index]],
                               words_[index - 1] + 1 == words_[index], source_.page.glyphs);
    }

    const PdfLineSource& source_;
    std::span<const std::uint32_t> words_;
};

/// A line with letters that are read from the right. The library has its words and marks in an
/// order that depends on the page, so it is put together from where each character stands.
class TurnedLine {
public:
    TurnedLine(const PdfLineSource& source, std::span<const std::uint32_t> words)
        : glyphs_(source.page.glyphs) {
        for (const std::uint32_t number : words) {
            const PdfWord& word = source.words[number];
            for (std::uint32_t i = word.first; i < word.end; i++) {
                (isPdfMark(glyphs_[i].character) ? marks_ : letters_).push_back(i);
                fromTheRight_ += isFromTheRight(glyphs_[i].character) ? 1 : 0;
                fromTheLeft_ += isFromTheLeft(glyphs_[i].character) ? 1 : 0;
            }
        }
        std::stable_sort(letters_.begin(), letters_.end(), [&](std::uint32_t a, std::uint32_t b) {
            return glyphs_[a].box.left < glyphs_[b].box.left;
        });
    }

    PdfLineText text(bool pageReadsFromTheRight) {
        PdfLineText text;
        text.readsFromTheRight = readsFromTheRight(pageReadsFromTheRight);
        attachMarks();
        makeCells();
        text.startWidth = startWidth(text.readsFromTheRight);
        orderAsRead(cells_, text.readsFromTheRight);
        for (const PdfCell& cell : cells_) {
            append(cell, text.characters);
        }
        return text;
    }

private:
    /// Whether the line begins at its right end. Some writers set text of such scripts from the
    /// left; then what ends a sentence stands on the right.
    [[nodiscard]] bool readsFromTheRight(bool pageDoes) const {
        if (letters_.empty() || (!pageDoes && fromTheRight_ <= fromTheLeft_)) {
            return pageDoes;
        }
        return endsSentence(glyphs_[letters_.front()].character) ||
               !endsSentence(glyphs_[letters_.back()].character);
    }

    /// The place of the letter that a mark stands on, or of the one that is nearest.
    [[nodiscard]] std::size_t placeOf(std::uint32_t mark) const {
        const PdfGlyph& glyph = glyphs_[mark];
        const bool isWide = widthOf(glyph.box) > kNoWidth * glyph.size;
        const double centre = centreOf(glyph.box) + (isWide ? 0 : kMarkCentre * glyph.size);
        const auto behind = std::upper_bound(
            letters_.begin(), letters_.end(), centre,
            [&](double at, std::uint32_t letter) { return at < glyphs_[letter].box.left; });
        const auto place = static_cast<std::size_t>(behind - letters_.begin());
        if (place == 0) {
            return 0;
        }
        const double over = centre - glyphs_[letters_[place - 1]].box.right;
        const bool isNext =
            over > 0 && behind != letters_.end() && glyphs_[*behind].box.left - centre < over;
        return isNext ? place : place - 1;
    }

    void attachMarks() {
        for (const std::uint32_t mark : marks_) {
            places_.push_back({placeOf(mark), mark});
        }
        std::stable_sort(places_.begin(), places_.end(),
                         [](const Place& a, const Place& b) { return a.letter < b.letter; });
    }

    void makeCells() {
        auto mark = places_.begin();
        double right = 0;
        for (std::size_t i = 0; i < std::max<std::size_t>(letters_.size(), 1); i++) {
            const auto first = static_cast<std::uint32_t>(items_.size());
            if (i < letters_.size()) {
                const PdfGlyph& letter = glyphs_[letters_[i]];
                if (i > 0 && letter.box.left - right > kPdfBlank * letter.size) {
                    cells_.push_back({first, first, U' '});
                }
                right = i == 0 ? letter.box.right : std::max<double>(right, letter.box.right);
                items_.push_back(letters_[i]);
            }
            for (; mark != places_.end() && mark->letter == i; ++mark) {
                items_.push_back(mark->mark);
            }
            cells_.push_back({first, static_cast<std::uint32_t>(items_.size()),
                              glyphs_[items_[first]].character});
        }
    }

    /// How wide the word is that is read first.
    [[nodiscard]] double startWidth(bool fromTheRight) const {
        const auto isBlank = [](const PdfCell& cell) {
            return cell.character == U' ';
        };
        if (fromTheRight) {
            const auto blank = std::find_if(cells_.rbegin(), cells_.rend(), isBlank);
            const PdfCell& first = blank == cells_.rend() ? cells_.front() : *(blank - 1);
            return glyphs_[items_[cells_.back().first]].box.right -
                   glyphs_[items_[first.first]].box.left;
        }
        const auto blank = std::find_if(cells_.begin(), cells_.end(), isBlank);
        return glyphs_[items_[(blank - 1)->first]].box.right -
               glyphs_[items_[cells_.front().first]].box.left;
    }

    void append(const PdfCell& cell, std::vector<PdfCharacter>& characters) const {
        if (cell.first == cell.end) {
            characters.push_back({U' ', characters.back().font});
            return;
        }
        // The letter may have been mirrored.
        characters.push_back({cell.character, glyphs_[items_[cell.first]].font});
        for (std::uint32_t i = cell.first + 1; i < cell.end; i++) {
            characters.push_back({glyphs_[items_[i]].character, glyphs_[items_[i]].font});
        }
    }

    struct Place {
        std::size_t letter = 0;
        std::uint32_t mark = 0;
    };

    std::span<const PdfGlyph> glyphs_;
    /// From the left.
    std::vector<std::uint32_t> letters_;
    std::vector<std::uint32_t> marks_;
    std::vector<Place> places_;
    /// Letters with their marks behind them.
    std::vector<std::uint32_t> items_;
    std::vector<PdfCell> cells_;
    std::size_t fromTheRight_ = 0;
    std::size_t fromTheLeft_ = 0;
};

}  // namespace

PdfLineText textOfLine(const PdfLine& line, const PdfLineSource& source) {
    std::vector<std::uint32_t> words;
    bool isTurned = false;
    for (const std::uint32_t number : line.fragments) {
        const PdfFragment& fragment = source.fragments[number];
        for (std::uint32_t i = fragment.first; i < fragment.end; i++) {
            words.push_back(i);
            isTurned = isTurned || source.words[i].isFromTheRight;
        }
    }
    std::stable_sort(words.begin(), words.end(), [&](std::uint32_t a, std::uint32_t b) {
        return source.words[a].box.left < source.words[b].box.left;
    });
    return isTurned ? TurnedLine(source, words).text(source.page.readsFromTheRight)
                    : StraightLine(source, words).text();
}

}  // namespace platform
