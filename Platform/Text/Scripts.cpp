#include "Platform/Text/Scripts.h"

#include <algorithm>
#include <iterator>

namespace platform {
namespace {

/// Characters in a row that have one script.
struct Stretch {
    char32_t first;
    char32_t last;
    Script script;
};

// clang-format off
constexpr Stretch kStretches[] = {
    {0x00AA, 0x00AA, Script::Latin},
    {0x00BA, 0x00BA, Script::Latin},
    {0x00C0, 0x00D6, Script::Latin},
    {0x00D8, 0x00F6, Script::Latin},
    {0x00F8, 0x02B8, Script::Latin},
    {0x0300, 0x036F, Script::Mark},
    {0x0370, 0x0373, Script::Greek},
    {0x0376, 0x037D, Script::Greek},
    {0x037F, 0x03FF, Script::Greek},
    {0x0400, 0x0481, Script::Cyrillic},
    {0x0483, 0x0487, Script::Mark},
    {0x048A, 0x052F, Script::Cyrillic},
    {0x0531, 0x0556, Script::Armenian},
    {0x0560, 0x0588, Script::Armenian},
    {0x0591, 0x05BD, Script::Hebrew},
    {0x05BF, 0x05BF, Script::Hebrew},
    {0x05C1, 0x05C2, Script::Hebrew},
    {0x05D0, 0x05F2, Script::Hebrew},
    {0x0620, 0x063F, Script::Arabic},
    {0x0641, 0x064A, Script::Arabic},
    {0x064B, 0x065F, Script::Mark},
    {0x066E, 0x066F, Script::Arabic},
    {0x0670, 0x0670, Script::Mark},
    {0x0671, 0x06D3, Script::Arabic},
    {0x06D5, 0x06D5, Script::Arabic},
    {0x06EE, 0x06EF, Script::Arabic},
    {0x06FA, 0x06FC, Script::Arabic},
    {0x0700, 0x074F, Script::Unnamed},  // Syriac
    {0x0750, 0x077F, Script::Arabic},
    {0x0780, 0x08FF, Script::Unnamed},  // Thaana and others
    {0x0900, 0x0963, Script::Devanagari},
    {0x0971, 0x097F, Script::Devanagari},
    {0x0980, 0x09E3, Script::Bengali},
    {0x09F0, 0x09F1, Script::Bengali},
    {0x0A01, 0x0A5E, Script::Gurmukhi},
    {0x0A70, 0x0A75, Script::Gurmukhi},
    {0x0A81, 0x0AE3, Script::Gujarati},
    {0x0B01, 0x0B63, Script::Oriya},
    {0x0B71, 0x0B71, Script::Oriya},
    {0x0B82, 0x0BD7, Script::Tamil},
    {0x0C00, 0x0C63, Script::Telugu},
    {0x0C80, 0x0CE3, Script::Kannada},
    {0x0CF1, 0x0CF2, Script::Kannada},
    {0x0D00, 0x0D63, Script::Malayalam},
    {0x0D7A, 0x0D7F, Script::Malayalam},
    {0x0D81, 0x0DDF, Script::Sinhala},
    {0x0E01, 0x0E3A, Script::Thai},
    {0x0E40, 0x0E4E, Script::Thai},
    {0x0E81, 0x0ECD, Script::Lao},
    {0x0EDC, 0x0EDF, Script::Lao},
    {0x0F00, 0x0F00, Script::Tibetan},
    {0x0F40, 0x0FBC, Script::Tibetan},
    {0x1000, 0x103F, Script::Myanmar},
    {0x1050, 0x108F, Script::Myanmar},
    {0x10A0, 0x10FF, Script::Georgian},
    {0x1100, 0x11FF, Script::Hangul},
    {0x1200, 0x135F, Script::Ethiopic},
    {0x1380, 0x138F, Script::Ethiopic},
    {0x13A0, 0x13FD, Script::Cherokee},
    {0x1400, 0x177F, Script::Unnamed},  // syllables of Canada, runes and others
    {0x1780, 0x17D3, Script::Khmer},
    {0x17DC, 0x17DD, Script::Khmer},
    {0x1820, 0x18AA, Script::Mongolian},
    {0x18B0, 0x1AAF, Script::Unnamed},
    {0x1AB0, 0x1AFF, Script::Mark},
    {0x1B00, 0x1C7F, Script::Unnamed},
    {0x1C80, 0x1C88, Script::Cyrillic},
    {0x1C90, 0x1CBF, Script::Georgian},
    {0x1D00, 0x1D7F, Script::Latin},
    {0x1DC0, 0x1DFF, Script::Mark},
    {0x1E00, 0x1EFF, Script::Latin},
    {0x1F00, 0x1FFC, Script::Greek},
    {0x200D, 0x200D, Script::Mark},  // joins the letters on both sides of it
    {0x2D00, 0x2D2D, Script::Georgian},
    {0x2D30, 0x2D7F, Script::Unnamed},
    {0x2D80, 0x2DDE, Script::Ethiopic},
    {0x2DE0, 0x2DFF, Script::Cyrillic},
    {0x3005, 0x3007, Script::Han},
    {0x3041, 0x3096, Script::Kana},
    {0x309D, 0x309F, Script::Kana},
    {0x30A1, 0x30FA, Script::Kana},
    {0x30FC, 0x30FF, Script::Kana},
    {0x3105, 0x312F, Script::Bopomofo},
    {0x3131, 0x318E, Script::Hangul},
    {0x31F0, 0x31FF, Script::Kana},
    {0x3400, 0x4DBF, Script::Han},
    {0x4E00, 0x9FFF, Script::Han},
    {0xA000, 0xA63F, Script::Unnamed},  // Yi and others
    {0xA640, 0xA69F, Script::Cyrillic},
    {0xA6A0, 0xA6FF, Script::Unnamed},
    {0xA722, 0xA7FF, Script::Latin},
    {0xA800, 0xA8DF, Script::Unnamed},
    {0xA8E0, 0xA8FF, Script::Devanagari},
    {0xA900, 0xA95F, Script::Unnamed},
    {0xA960, 0xA97C, Script::Hangul},
    {0xA980, 0xAA5F, Script::Unnamed},
    {0xAA60, 0xAA7F, Script::Myanmar},
    {0xAA80, 0xAAFF, Script::Unnamed},
    {0xAB01, 0xAB2E, Script::Ethiopic},
    {0xAB30, 0xAB67, Script::Latin},
    {0xAB70, 0xABBF, Script::Cherokee},
    {0xABC0, 0xABED, Script::Unnamed},
    {0xAC00, 0xD7FB, Script::Hangul},
    {0xF900, 0xFAD9, Script::Han},
    {0xFB00, 0xFB06, Script::Latin},
    {0xFB13, 0xFB17, Script::Armenian},
    {0xFB1D, 0xFB4F, Script::Hebrew},
    {0xFB50, 0xFDFB, Script::Arabic},
    {0xFE20, 0xFE2F, Script::Mark},
    {0xFE70, 0xFEFC, Script::Arabic},
    {0xFF21, 0xFF3A, Script::Latin},
    {0xFF41, 0xFF5A, Script::Latin},
    {0xFF66, 0xFF9D, Script::Kana},
    {0xFFA0, 0xFFDC, Script::Hangul},
    {0x10000, 0x1AFEF, Script::Unnamed},
    {0x1AFF0, 0x1B167, Script::Kana},
    {0x20000, 0x3FFFD, Script::Han},
};
// clang-format on

constexpr bool isSorted() {
    for (std::size_t i = 0; i + 1 < std::size(kStretches); i++) {
        if (kStretches[i].last >= kStretches[i + 1].first) {
            return false;
        }
    }
    return true;
}
static_assert(isSorted());

constexpr bool isBetween(char16_t unit, char16_t first, char16_t last) {
    return unit >= first && unit <= last;
}

/// Whether capitals have even numbers there, each followed by its small letter.
constexpr bool areCapitalsEven(char16_t unit) {
    return isBetween(unit, 0x0100, 0x0137) || isBetween(unit, 0x014A, 0x0177) ||
           isBetween(unit, 0x01DE, 0x01EF) || isBetween(unit, 0x01F8, 0x021F) ||
           isBetween(unit, 0x0222, 0x0233) || isBetween(unit, 0x0460, 0x0481) ||
           isBetween(unit, 0x048A, 0x04BF) || isBetween(unit, 0x04D0, 0x052F) ||
           isBetween(unit, 0x1E00, 0x1E95) || isBetween(unit, 0x1EA0, 0x1EFF);
}

/// The same with odd numbers.
constexpr bool areCapitalsOdd(char16_t unit) {
    return isBetween(unit, 0x0139, 0x0148) || isBetween(unit, 0x0179, 0x017E) ||
           isBetween(unit, 0x01CD, 0x01DC) || isBetween(unit, 0x04C1, 0x04CE);
}

}  // namespace

Script scriptOf(char32_t codePoint) noexcept {
    if (codePoint < 0x80) {
        const char32_t small = codePoint | 0x20;
        return small >= 'a' && small <= 'z' ? Script::Latin : Script::None;
    }
    const auto next = std::upper_bound(
        std::begin(kStretches), std::end(kStretches), codePoint,
        [](char32_t value, const Stretch& stretch) { return value < stretch.first; });
    if (next == std::begin(kStretches)) {
        return Script::None;
    }
    const Stretch& stretch = *std::prev(next);
    return codePoint <= stretch.last ? stretch.script : Script::None;
}

bool isCapital(char16_t letter) noexcept {
    return letter != u'ţ' && smallLetter(letter) != letter;
}

char16_t smallLetter(char16_t letter) noexcept {
    if (isBetween(letter, u'A', u'Z') || isBetween(letter, u'À', u'Ö') ||
        isBetween(letter, u'Ø', u'Þ') || isBetween(letter, u'А', u'Я')) {
        return letter + 0x20;
    }
    if (isBetween(letter, u'Ѐ', u'Џ')) {
        return letter + 0x50;
    }
    switch (letter) {
        case u'İ':
            return u'i';
        case u'ı':
        case u'ĸ':
            return letter;
        case u'Ţ':
        case u'ţ':
            return u'ț';
        case u'Ÿ':
            return u'ÿ';
        case u'Ə':
            return u'ə';
        case u'Ơ':
        case u'Ư':
            return letter + 1;
        case u'ẞ':
            return u'ß';
        default:
            break;
    }
    if (areCapitalsEven(letter)) {
        return letter | 1;
    }
    return areCapitalsOdd(letter) ? letter + (letter & 1) : letter;
}

}  // namespace platform
