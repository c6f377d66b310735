#include "Platform/Text/PdfBlanks.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "Platform/Text/Modules/UnicodeModule.h"
#include "Platform/Text/PdfGeometry.h"
#include "Platform/Text/Scripts.h"

namespace platform {
namespace {

/// In sizes: the narrowest blank between words, and between characters of scripts that have none.
constexpr double kWideBlank = 0.5;
/// In sizes of the text: how far it may stand from its first letter when that is a large capital.
constexpr double kCapitalGap = 0.75;
constexpr std::size_t kLongestCapital = 2;
/// How much larger such a capital is at least.
constexpr double kMuchLarger = 1.9;

/// How many signs are looked through for the letter behind them.
constexpr std::size_t kMostSigns = 8;

bool isDigit(char32_t character) {
    return character >= U'0' && character <= U'9';
}

bool isThaiOrLikeIt(char32_t character) {
    return (character >= 0xE01 && character <= 0xEFF) ||
           (character >= 0x1000 && character <= 0x109F) ||
           (character >= 0x1780 && character <= 0x17FF) ||
           (character >= 0x19E0 && character <= 0x19FF) ||
           (character >= 0xA9E0 && character <= 0xA9FF) ||
           (character >= 0xAA60 && character <= 0xAA7F);
}

/// Whether a character is a sign that ideographs share with scripts that have blanks.
bool isSharedSign(char32_t character) {
    constexpr std::u32string_view kSigns = U"\u00B7\u2014\u2015\u2018\u2019\u201C\u201D\u2026";
    return character >= 0xB7 && kSigns.find(character) != std::u32string_view::npos;
}

/// Whether what is read from `first` on is of a script without blanks.
template <class Iterator>
bool isWithoutBlanks(Iterator first, Iterator end) {
    for (std::size_t i = 0; first != end && i < kMostSigns; ++first, i++) {
        if (!isSharedSign(first->character)) {
            return i == 0 ? standsWithoutBlanks(first->character) : isIdeographic(first->character);
        }
    }
    return false;
}

/// The size by which a gap between characters of two sizes is measured: the larger one, unless it
/// is so much larger that its gaps say nothing of the other's.
double gapSize(double first, double second) {
    const auto [small, large] = std::minmax(first, second);
    return isMuchLarger(large, small) ? small : large;
}

/// Whether two words are the large first letter of a text and what comes behind it.
bool areCapitalAndText(const PdfWord& before, const PdfGlyph& last, const PdfGlyph& first) {
    const auto isLetter = moduleFunctions<UnicodeFunctions>().isLetter;
    return isMuchLarger(last.size, first.size) && before.end - before.first <= kLongestCapital &&
           isLetter(last.character) && isLetter(first.character);
}

}  // namespace

bool isPdfHyphen(char32_t character) noexcept {
    return character == U'-' || character == 0xAD || character == 0x2010;
}

bool isIdeographic(char32_t character) {
    constexpr char32_t kFirst = 0x2E80;
    if (character < kFirst) {
        return false;
    }
    const Script script = scriptOf(character);
    return script == Script::Han || script == Script::Kana || script == Script::Bopomofo ||
           (character >= 0x3000 && character <= 0x303F) ||
           (character >= 0xFF00 && character <= 0xFF65);
}

bool standsWithoutBlanks(char32_t character) {
    return isThaiOrLikeIt(character) || isIdeographic(character);
}

bool beginsWithoutBlanks(std::span<const PdfGlyph> word) {
    return isWithoutBlanks(word.begin(), word.end());
}

bool joinWithoutBlank(std::span<const PdfCharacter> above, std::span<const PdfCharacter> below) {
    const std::size_t count = above.size();
    if (isDigit(below[0].character) && count > 1 && isPdfHyphen(above[count - 1].character) &&
        isDigit(above[count - 2].character)) {
        return true;
    }
    return isWithoutBlanks(above.rbegin(), above.rend()) &&
           isWithoutBlanks(below.begin(), below.end());
}

bool isMuchLarger(double size, double text) {
    return size > kMuchLarger * text;
}

bool hasBlankBetween(const PdfWord& before, const PdfWord& word, bool followEachOther,
                     std::span<const PdfGlyph> glyphs) {
    const PdfGlyph& last = glyphs[before.end - 1];
    const PdfGlyph& first = glyphs[word.first];
    const bool isOneSize = last.size == first.size;
    const double size = isOneSize ? first.size : gapSize(last.size, first.size);
    const double gap = gapAcross(before.box, word.box);
    if (isIdeographic(last.character) && isIdeographic(first.character)) {
        return gap > kWideBlank * size;
    }
    if (!isOneSize && areCapitalAndText(before, last, first)) {
        return gap > kCapitalGap * size;
    }
    if (followEachOther && before.piece == word.piece) {
        return word.isBehindBlank || gap > kWideBlank * size;
    }
    return gap > kPdfBlank * size;
}

}  // namespace platform
