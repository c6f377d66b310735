#include "Platform/Text/PdfWords.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "Platform/Text/PdfDirection.h"
#include "Platform/Text/PdfGeometry.h"
#include "Platform/Text/PdfLigatures.h"

namespace platform {
namespace {

constexpr double kSmallestSize = 1e-3;
constexpr double kLargestSize = 1e4;

/// In sizes: what parts words of one piece although no blank does, such as the cells of a table.
constexpr double kWordGap = 0.5;

/// How a word runs over the page.
enum class Turn : std::uint8_t { FromTheLeft, Down, UpsideDown, Up };

bool isBlank(char32_t character) {
    if (character > U' ' && character != 0xA0) {
        return false;
    }
    return character == U' ' || character == U'\n' || character == U'\t' || character == U'\r' ||
           character == U'\f' || character == U'\v' || character == 0xA0;
}

/// Whether a box has its corners in order, as nearly all have. No comparison holds for what is no
/// number.
bool isSound(const PdfBox& box) {
    return box.left <= box.right && box.top <= box.bottom;
}

/// Whether a word's last character stands on the right of the first, at the same height.
bool standsInOneRow(const PdfBox& first, const PdfBox& last) {
    return first.top == last.top && first.bottom == last.bottom && first.left < last.left &&
           first.right < last.right;
}

float boundedSize(double size) {
    return static_cast<float>(std::clamp(size, kSmallestSize, kLargestSize));
}

/// The box on a page that is turned until a word reads from the left.
PdfBox turned(const PdfBox& box, Turn turn) {
    switch (turn) {
        case Turn::Down:
            return {box.top, -box.right, box.bottom, -box.left};
        case Turn::UpsideDown:
            return {-box.right, -box.bottom, -box.left, -box.top};
        case Turn::Up:
            return {-box.bottom, box.left, -box.top, box.right};
        default:
            return box;
    }
}

/// Makes the words of a page, one character after the other.
class WordMaker {
public:
    explicit WordMaker(const PdfPageText& text) : text_(text) {
        page_.glyphs.reserve(text.characters.size());
        page_.fonts.emplace_back();
        words_.reserve(static_cast<std::size_t>(
            std::count_if(text.characters.begin(), text.characters.end(), isBlank) + 1));
    }

    PdfPageWords make() {
        std::size_t at = 0;
        for (const PdfFontRun& run : text_.fonts) {
            useFont(run);
            at = takeUntil(std::min(run.end, text_.characters.size()), at);
        }
        useNoFont();
        takeUntil(text_.characters.size(), at);
        endWord();
        if (fromTheRight_ > 0) {
            partLigatures(page_.glyphs);
            page_.readsFromTheRight = fromTheRight_ > countFromTheLeft();
        }
        settleTurns();
        return std::move(page_);
    }

private:
    struct Found {
        PdfWord word;
        std::optional<Turn> turn;
    };

    /// Takes the characters from `at` up to `end`; returns where the next ones begin.
    std::size_t takeUntil(std::size_t end, std::size_t at) {
        for (; at < end; at++) {
            const char32_t character = text_.characters[at];
            if (isBlank(character)) {
                takeBlank(character);
            } else if (isPdfText(character)) {
                takeGlyph(character, at < text_.boxes.size() ? text_.boxes[at] : PdfBox{});
            } else if (isForPrivateUse(character) && at < text_.boxes.size()) {
                bullet_ = text_.boxes[at];
            }
        }
        return at;
    }

    void takeBlank(char32_t blank) {
        endWord();
        isBehindBlank_ = true;
        if (blank == U'\n') {
            piece_++;
            isBehindBlank_ = false;
        }
    }

    void takeGlyph(char32_t character, const PdfBox& box) {
        PdfGlyph glyph;
        glyph.character = character;
        glyph.font = font_;
        glyph.box = isSound(box) ? box : mended(box);
        glyph.size = size_ > 0 ? size_ : boundedSize(heightOf(glyph.box));
        page_.glyphs.push_back(glyph);
        fromTheRight_ += isFromTheRight(character) ? 1 : 0;
    }

    /// A sound box for one that is not: that of the character before it where it is no box at all.
    [[nodiscard]] PdfBox mended(const PdfBox& box) const {
        if (std::isnan(box.left) || std::isnan(box.top) || std::isnan(box.right) ||
            std::isnan(box.bottom)) {
            return page_.glyphs.empty() ? PdfBox{} : page_.glyphs.back().box;
        }
        const auto [left, right] = std::minmax({box.left, box.right});
        const auto [top, bottom] = std::minmax({box.top, box.bottom});
        return {left, top, right, bottom};
    }

    [[nodiscard]] std::size_t countFromTheLeft() const {
        return static_cast<std::size_t>(
            std::count_if(page_.glyphs.begin(), page_.glyphs.end(),
                          [](const PdfGlyph& glyph) { return isFromTheLeft(glyph.character); }));
    }

    void useNoFont() {
        font_ = 0;
        size_ = 0;
    }

    void useFont(const PdfFontRun& run) {
        size_ = std::isfinite(run.size) && run.size > 0 ? boundedSize(run.size) : 0;
        const auto faces = static_cast<std::uint32_t>(faces_.size());
        const std::uint32_t face = faces_.try_emplace(run.name, faces).first->second;
        const auto fonts = static_cast<std::uint32_t>(page_.fonts.size());
        const auto [found, isNew] = fonts_.try_emplace({face, size_}, fonts);
        if (isNew) {
            page_.fonts.push_back({run.name, size_ > 0 ? run.size : 0, face});
        }
        font_ = found->second;
    }

    /// Notes the word that the characters since the last one make.
    void endWord() {
        const auto end = static_cast<std::uint32_t>(page_.glyphs.size());
        if (first_ < end) {
            const std::optional<Turn> turn = turnOf(first_, end);
            words_.push_back(
                {{first_, end, piece_, isBehindBlank_, fromTheRight_ > fromTheRightBefore_, {}},
                 turn});
            words_.back().word.isBehindBullet =
                bullet_ && standsShortlyBehind(page_.glyphs[first_].box, *bullet_);
            bullet_.reset();
            fromTheRightBefore_ = fromTheRight_;
            if (turn) {
                counts_[static_cast<std::size_t>(*turn)] += end - first_;
            }
            isBehindBlank_ = false;
        }
        first_ = end;
    }

    /// Which way most characters follow each other; nothing when none does. Where words of a table
    /// or of a script that is read from the right come without blanks, some steps lead back.
    [[nodiscard]] std::optional<Turn> turnOf(std::uint32_t first, std::uint32_t end) const {
        if (standsInOneRow(page_.glyphs[first].box, page_.glyphs[end - 1].box)) {
            return Turn::FromTheLeft;
        }
        std::array<int, PdfPageWords::kTurns> steps{};
        for (std::uint32_t i = first + 1; i < end; i++) {
            const PdfBox& before = page_.glyphs[i - 1].box;
            const PdfBox& box = page_.glyphs[i].box;
            const double across = centreOf(box) - centreOf(before);
            const double down = middleOf(box) - middleOf(before);
            if (across != 0 || down != 0) {
                const Turn turn = std::abs(across) < std::abs(down)
                                      ? (down > 0 ? Turn::Down : Turn::Up)
                                      : (across > 0 ? Turn::FromTheLeft : Turn::UpsideDown);
                steps[static_cast<std::size_t>(turn)]++;
            }
        }
        const auto most = std::max_element(steps.begin(), steps.end());
        return *most > 0 ? std::optional(static_cast<Turn>(most - steps.begin())) : std::nullopt;
    }

    /// Gives words of one character the turn of a word beside them, then all words to their turn.
    void settleTurns() {
        const auto most = static_cast<std::size_t>(
            std::max_element(counts_.begin(), counts_.end()) - counts_.begin());
        page_.wordsByTurn[0].reserve(words_.size());
        for (std::size_t i = 0; i < words_.size(); i++) {
            Turn turn = static_cast<Turn>(most);
            if (words_[i].turn) {
                turn = *words_[i].turn;
            } else if (i > 0 && words_[i - 1].word.piece == words_[i].word.piece) {
                turn = *words_[i - 1].turn;
            } else if (i + 1 < words_.size() && words_[i + 1].turn &&
                       words_[i + 1].word.piece == words_[i].word.piece) {
                turn = *words_[i + 1].turn;
            }
            words_[i].turn = turn;
            // The most frequent one changes places with the first.
            const auto number = static_cast<std::size_t>(turn);
            addParts(words_[i].word, turn,
                     page_.wordsByTurn[number == most ? 0
                                       : number == 0  ? most
                                                      : number]);
        }
    }

    /// Turns a word and adds it, in parts where its characters stand apart.
    void addParts(PdfWord word, Turn turn, std::vector<PdfWord>& words) {
        const std::uint32_t end = word.end;
        for (std::uint32_t i = word.first; i < end; i++) {
            PdfGlyph& glyph = page_.glyphs[i];
            if (turn != Turn::FromTheLeft) {
                glyph.box = turned(glyph.box, turn);
            }
            if (i == word.first) {
                word.box = glyph.box;
                continue;
            }
            const PdfBox& before = page_.glyphs[i - 1].box;
            if (gapAcross(before, glyph.box) > kWordGap * glyph.size) {
                word.end = i;
                words.push_back(word);
                word.first = i;
                word.isBehindBlank = false;
                word.box = glyph.box;
            } else {
                word.box = hullOf(word.box, glyph.box);
            }
        }
        word.end = end;
        words.push_back(word);
    }

    const PdfPageText& text_;
    PdfPageWords page_;
    std::vector<Found> words_;
    std::array<std::size_t, PdfPageWords::kTurns> counts_{};
    /// The font of the current characters, and its size; 0 when there is none.
    std::uint32_t font_ = 0;
    float size_ = 0;
    /// The first face is that of no font.
    std::map<std::string_view, std::uint32_t> faces_{{{}, 0}};
    std::map<std::pair<std::uint32_t, float>, std::uint32_t> fonts_;
    /// How many letters are read from the right, and how many were before the current word.
    std::size_t fromTheRight_ = 0;
    std::size_t fromTheRightBefore_ = 0;
    std::uint32_t first_ = 0;
    std::uint32_t piece_ = 0;
    bool isBehindBlank_ = false;
    std::optional<PdfBox> bullet_;
};

}  // namespace

bool isPdfText(char32_t character) noexcept {
    if (character > 0x20 && character < 0x7F) {
        return true;
    }
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    const bool isDirection = character == 0x61C || character == 0x200E || character == 0x200F ||
                             (character >= 0x202A && character <= 0x202E) ||
                             (character >= 0x2066 && character <= 0x2069);
    const bool isNoCharacter = (character >= 0xD800 && character <= 0xDFFF) ||
                               (character & 0xFFFEU) == 0xFFFE || character == 0xFEFF;
    return !isControl && !isDirection && !isForPrivateUse(character) && !isNoCharacter &&
           !isBlank(character);
}

PdfPageWords wordsOfPage(const PdfPageText& text) {
    return WordMaker(text).make();
}

}  // namespace platform
