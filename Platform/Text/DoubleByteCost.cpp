#include "Platform/Text/DoubleByteCost.h"

#include <algorithm>
#include <array>
#include <span>

#include "Platform/Text/AlphabetCost.h"

namespace platform {
namespace {

/// Characters from `first` to `last` whose second bytes lie from `firstTrail` to `lastTrail`.
///
/// The cost is the logarithm of how many they are, less that of their share in a text's characters
/// beyond ASCII.
struct Region {
    std::uint16_t first;
    std::uint16_t last;
    std::uint8_t firstTrail;
    std::uint8_t lastTrail;
    float cost;
};

/// An encoding. The first region that a pair of bytes lies in counts; pairs in none are rare
/// characters or none.
struct Table {
    std::span<const Region> regions;
    std::span<const std::uint16_t> commonest;  ///< in order
    float commonestCost;
    std::uint8_t firstTrail;  ///< the least second byte of any character
};

constexpr float kNoCharacter = 14;
constexpr float kRareCharacter = 15;
constexpr float kHalfCharacter = 8;  // at the end: a text may be cut
constexpr float kBesideLetter = 3;   // a letter of ASCII without a blank between

constexpr Region kShiftJis[] = {
    {0x829F, 0x82F1, 0x9F, 0xF1, 5.1F},   // hiragana
    {0x8141, 0x8142, 0x41, 0x42, 3.4F},   // comma and full stop
    {0x8340, 0x8396, 0x40, 0x96, 6.7F},   // katakana
    {0x889F, 0x9872, 0x40, 0xFC, 9.3F},   // common kanji
    {0x8140, 0x81FC, 0x40, 0xFC, 7.8F},   // punctuation
    {0x824F, 0x829A, 0x4F, 0x9A, 8.9F},   // wide digits and letters
    {0x8440, 0x84BE, 0x40, 0xBE, 10.3F},  // Cyrillic and lines
    {0x989F, 0xEAA4, 0x40, 0xFC, 13.4F},  // rare kanji
};

constexpr Region kEucJp[] = {
    {0xA4A1, 0xA4F3, 0xA1, 0xF3, 5.1F},   // hiragana
    {0xA1A2, 0xA1A3, 0xA2, 0xA3, 3.4F},   // comma and full stop
    {0xA5A1, 0xA5F6, 0xA1, 0xF6, 6.7F},   // katakana
    {0xB0A1, 0xCFD3, 0xA1, 0xFE, 9.3F},   // common kanji
    {0xA1A1, 0xA1FE, 0xA1, 0xFE, 7.8F},   // punctuation
    {0xA3A1, 0xA3FE, 0xA1, 0xFE, 8.9F},   // wide digits and letters
    {0x8EA1, 0x8EDF, 0xA1, 0xDF, 9.9F},   // narrow katakana
    {0xA2A1, 0xA8C0, 0xA1, 0xFE, 10.3F},  // Greek, Cyrillic and lines
    {0xD0A1, 0xF4A6, 0xA1, 0xFE, 13.4F},  // rare kanji
};

constexpr Region kGbk[] = {
    {0xA3AC, 0xA3AC, 0xAC, 0xAC, 3.4F},   // comma
    {0xA1A2, 0xA1A3, 0xA2, 0xA3, 3.4F},   // another one and the full stop
    {0xB0A1, 0xD7F9, 0xA1, 0xFE, 8.4F},   // common characters
    {0xA1A1, 0xA1FE, 0xA1, 0xFE, 8.5F},   // punctuation
    {0xA3A1, 0xA3FE, 0xA1, 0xFE, 8.5F},   // wide punctuation, digits and letters
    {0xA2A1, 0xA9EF, 0xA1, 0xFE, 11.5F},  // numbers, Greek, kana and lines
    {0xD8A1, 0xF7FE, 0xA1, 0xFE, 11.9F},  // rare characters
};

constexpr Region kBig5[] = {
    {0xA141, 0xA143, 0x41, 0x43, 3.2F},   // commas and full stop
    {0xA440, 0xC67E, 0x40, 0xFE, 8.8F},   // common characters
    {0xA140, 0xA3BF, 0x40, 0xFE, 9.2F},   // punctuation, wide digits and letters
    {0xC940, 0xF9D5, 0x40, 0xFE, 13.5F},  // rare characters
};

constexpr Region kEucKr[] = {
    {0xB0A1, 0xC8FE, 0xA1, 0xFE, 8.2F},   // syllables
    {0xA1A1, 0xA3FE, 0xA1, 0xFE, 9.1F},   // punctuation, wide digits and letters
    {0xA4A1, 0xACF1, 0xA1, 0xFE, 10.5F},  // jamo, Greek, kana and lines
    {0xCAA1, 0xFDFE, 0xA1, 0xFE, 13},     // hanja
    {0x8141, 0xC652, 0x41, 0xFE, 14.4F},  // rare syllables
};

constexpr Region kJohab[] = {
    {0x8861, 0xD3BD, 0x41, 0xFE, 9.4F},   // syllables, all there are
    {0xD931, 0xDEF1, 0x31, 0xFE, 9.5F},   // punctuation, wide digits and letters
    {0xE031, 0xF9FE, 0x31, 0xFE, 13},     // hanja
    {0x8444, 0x8841, 0x41, 0x61, 10.5F},  // jamo
};

// 的一是不了在人有我他这个们中来上大为和国地到以说时要就出会可也你对生能而子那得于着下自之年过发后作里用道行所然家种事
constexpr std::uint16_t kCommonChinese[] = {
    0xB2BB, 0xB3F6, 0xB4F3, 0xB5BD, 0xB5C0, 0xB5C3, 0xB5C4, 0xB5D8, 0xB6D4, 0xB6F8, 0xB7A2, 0xB8F6,
    0xB9FA, 0xB9FD, 0xBACD, 0xBAF3, 0xBBE1, 0xBCD2, 0xBECD, 0xBFC9, 0xC0B4, 0xC0EF, 0xC1CB, 0xC3C7,
    0xC4C7, 0xC4DC, 0xC4E3, 0xC4EA, 0xC8BB, 0xC8CB, 0xC9CF, 0xC9FA, 0xCAB1, 0xCAC2, 0xCAC7, 0xCBB5,
    0xCBF9, 0xCBFB, 0xCEAA, 0xCED2, 0xCFC2, 0xD0D0, 0xD2AA, 0xD2B2, 0xD2BB, 0xD2D4, 0xD3C3, 0xD3D0,
    0xD3DA, 0xD4DA, 0xD5E2, 0xD6AE, 0xD6D0, 0xD6D6, 0xD7C5, 0xD7D3, 0xD7D4, 0xD7F7,
};

// 的一是不了在人有我他這個們中來上大為和國地到以說時要就出會可也你對生能而子那得於著下自之年過發後作裡用道行所然家種事
constexpr std::uint16_t kCommonTraditional[] = {
    0xA440, 0xA446, 0xA448, 0xA455, 0xA457, 0xA45D, 0xA46A, 0xA46C, 0xA4A3, 0xA4A4, 0xA4A7, 0xA548,
    0xA54C, 0xA558, 0xA569, 0xA5CD, 0xA5CE, 0xA661, 0xA662, 0xA67E, 0xA6B3, 0xA6D3, 0xA6DB, 0xA6E6,
    0xA740, 0xA741, 0xA7DA, 0xA8BA, 0xA8C6, 0xA8D3, 0xA8EC, 0xA94D, 0xA9D2, 0xA9F3, 0xAABA, 0xABE1,
    0xAC4F, 0xACB0, 0xAD6E, 0xADCC, 0xADD3, 0xAE61, 0xAEC9, 0xAFE0, 0xB0EA, 0xB16F, 0xB36F, 0xB44E,
    0xB54D, 0xB56F, 0xB5DB, 0xB77C, 0xB8CC, 0xB944, 0xB94C, 0xB9EF, 0xBAD8, 0xBBA1,
};

// 이다는가의에을지고하은한를도로기사자어리인그나시서아대해있으수들부보정것일스전만게면라원
constexpr std::uint16_t kCommonKorean[] = {
    0xB0A1, 0xB0CD, 0xB0D4, 0xB0ED, 0xB1D7, 0xB1E2, 0xB3AA, 0xB4C2, 0xB4D9, 0xB4EB, 0xB5B5,
    0xB5E9, 0xB6F3, 0xB7CE, 0xB8A6, 0xB8AE, 0xB8B8, 0xB8E9, 0xBAB8, 0xBACE, 0xBBE7, 0xBCAD,
    0xBCF6, 0xBDBA, 0xBDC3, 0xBEC6, 0xBEEE, 0xBFA1, 0xBFF8, 0xC0B8, 0xC0BA, 0xC0BB, 0xC0C7,
    0xC0CC, 0xC0CE, 0xC0CF, 0xC0D6, 0xC0DA, 0xC0FC, 0xC1A4, 0xC1F6, 0xC7CF, 0xC7D1, 0xC7D8,
};

constexpr std::uint16_t kCommonJohab[] = {
    0x8861, 0x88F5, 0x8941, 0x89A1, 0x8B61, 0x8BA1, 0x9061, 0x9365, 0x9461, 0x9481, 0x95A1,
    0x9769, 0x9C61, 0x9DA1, 0x9F69, 0x9FA1, 0xA065, 0xA165, 0xA5A1, 0xA681, 0xAC61, 0xACE1,
    0xAE81, 0xAF61, 0xAFA1, 0xB461, 0xB4E1, 0xB541, 0xB6A5, 0xB761, 0xB765, 0xB769, 0xB781,
    0xB7A1, 0xB7A5, 0xB7A9, 0xB7B6, 0xB861, 0xB8E5, 0xB8F7, 0xBBA1, 0xD061, 0xD065, 0xD081,
};

// A quarter of the characters of a Chinese text are among these, and two in five of a Korean one.
constexpr std::array kTables = {
    Table{kShiftJis, {}, 0, 0x40},
    Table{kEucJp, {}, 0, 0xA1},
    Table{kGbk, kCommonChinese, 5.5F, 0x40},
    Table{kBig5, kCommonTraditional, 5.5F, 0x40},
    Table{kEucKr, kCommonKorean, 4.7F, 0x41},
    Table{kJohab, kCommonJohab, 4.7F, 0x31},
};

float costOfPair(std::uint16_t pair, const Table& table) {
    if (std::binary_search(table.commonest.begin(), table.commonest.end(), pair)) {
        return table.commonestCost;
    }
    const auto trail = static_cast<std::uint8_t>(pair);
    for (const Region& region : table.regions) {
        if (pair >= region.first && pair <= region.last && trail >= region.firstTrail &&
            trail <= region.lastTrail) {
            return region.cost;
        }
    }
    return kRareCharacter;
}

/// Narrow katakana, one byte each, stand many in a row or not at all.
bool isNarrowKatakana(unsigned char byte) {
    return byte >= 0xA1 && byte <= 0xDF;
}
constexpr float kFirstNarrowKatakana = 9;
constexpr float kNextNarrowKatakana = 6;

enum class Kind { Letter, Other, Narrow, Double };

/// What a byte begins: a letter of ASCII, something else of it, or a character beyond it.
Kind kindOf(unsigned char byte, DoubleByteEncoding encoding) {
    if (byte < 0x80) {
        const int small = byte | 0x20;
        return small >= 'a' && small <= 'z' ? Kind::Letter : Kind::Other;
    }
    return encoding == DoubleByteEncoding::ShiftJis && isNarrowKatakana(byte) ? Kind::Narrow
                                                                              : Kind::Double;
}

bool areLetterAndOther(Kind first, Kind second) {
    return (first == Kind::Letter && second >= Kind::Narrow) ||
           (second == Kind::Letter && first >= Kind::Narrow);
}

}  // namespace

float doubleByteCost(std::string_view bytes, DoubleByteEncoding encoding) {
    const Table& table = kTables[static_cast<std::size_t>(encoding)];
    float cost = 0;
    Kind last = Kind::Other;
    for (std::size_t i = 0; i < bytes.size(); i++) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        const Kind kind = kindOf(lead, encoding);
        if (kind == Kind::Narrow) {
            cost += last == Kind::Narrow ? kNextNarrowKatakana : kFirstNarrowKatakana;
        } else if (kind != Kind::Double) {
            cost += kAsciiCost;
        } else if (i + 1 == bytes.size()) {
            cost += kHalfCharacter;
        } else {
            const auto trail = static_cast<unsigned char>(bytes[i + 1]);
            const bool isPair = lead > 0x80 && lead < 0xFF && trail >= table.firstTrail &&
                                trail != 0x7F && trail != 0xFF;
            cost += isPair ? costOfPair(static_cast<std::uint16_t>(lead << 8 | trail), table)
                           : kNoCharacter;
            i += isPair ? 1 : 0;
        }
        cost += areLetterAndOther(last, kind) ? kBesideLetter : 0;
        last = kind;
    }
    return cost;
}

}  // namespace platform
