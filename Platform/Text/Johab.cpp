#include "Platform/Text/Johab.h"

#include <array>
#include <cstdint>
#include <optional>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

/// The numbers of letters by their five bits: kFiller for none, kInvalid for what is no letter.
using Letters = std::array<int, 32>;
constexpr int kFiller = -1;
constexpr int kInvalid = -2;

/// Makes the numbers that follow each other from `first` on, except at the places in `gaps`.
constexpr Letters lettersFrom(std::size_t filler, std::size_t first, std::size_t last,
                              std::uint32_t gaps, int number) {
    Letters letters{};
    letters.fill(kInvalid);
    letters[filler] = kFiller;
    for (std::size_t place = first; place <= last; ++place) {
        if ((gaps >> place & 1U) == 0) {
            letters[place] = number++;
        }
    }
    return letters;
}

constexpr Letters kInitials = lettersFrom(1, 2, 20, 0, 0);
constexpr Letters kVowels =
    lettersFrom(2, 3, 29, 1U << 8 | 1U << 9 | 1U << 16 | 1U << 17 | 1U << 24 | 1U << 25, 0);
constexpr Letters kFinals = lettersFrom(1, 2, 29, 1U << 18, 1);

// Letters that stand alone.
constexpr std::u16string_view kLoneInitials =
    u"\u3131\u3132\u3134\u3137\u3138\u3139\u3141\u3142\u3143\u3145\u3146\u3147\u3148\u3149\u314A"
    u"\u314B\u314C\u314D\u314E";
constexpr std::u16string_view kLoneFinals =
    u"\u3131\u3132\u3133\u3134\u3135\u3136\u3137\u3139\u313A\u313B\u313C\u313D\u313E\u313F\u3140"
    u"\u3141\u3142\u3144\u3145\u3146\u3147\u3148\u314A\u314B\u314C\u314D\u314E";
constexpr char16_t kLoneVowels = 0x314F;
constexpr char16_t kSyllables = 0xAC00;
constexpr char16_t kNoLetter = 0x3000;

/// The syllable or letter of two bytes; nothing when they are neither.
std::optional<char16_t> hangulOf(unsigned pair) {
    const int initial = kInitials[pair >> 10U & 31U];
    const int vowel = kVowels[pair >> 5U & 31U];
    const int final = kFinals[pair & 31U];
    if (initial >= 0 && vowel >= 0 && final != kInvalid) {
        return static_cast<char16_t>(kSyllables + (initial * 21 + vowel) * 28 +
                                     (final == kFiller ? 0 : final));
    }
    if (initial >= 0 && vowel == kFiller && final == kFiller) {
        return kLoneInitials[static_cast<std::size_t>(initial)];
    }
    if (initial == kFiller && vowel >= 0 && final == kFiller) {
        return static_cast<char16_t>(kLoneVowels + vowel);
    }
    if (initial != kFiller || vowel != kFiller || final == kInvalid) {
        return std::nullopt;
    }
    return final == kFiller ? kNoLetter : kLoneFinals[static_cast<std::size_t>(final - 1)];
}

/// Where two bytes stand in the national table, as code page 949 has its places; nothing when
/// nowhere. Two rows of the table follow each other behind one first byte.
std::optional<std::array<char, 2>> tablePlaceOf(unsigned first, unsigned second) {
    const bool isSign = first >= 0xD9 && first <= 0xDE;
    const bool isChinese = first >= 0xE0 && first <= 0xF9;
    const bool isLow = second >= 0x31 && second <= 0x7E;
    if (!(isSign || isChinese) || !(isLow || (second >= 0x91 && second <= 0xFE))) {
        return std::nullopt;
    }
    constexpr unsigned kColumns = 94;
    constexpr unsigned kFirstChineseRow = 41;
    const unsigned column = isLow ? second - 0x31 : second - 0x43;
    const unsigned row =
        (isSign ? 2 * (first - 0xD9) : 2 * (first - 0xE0) + kFirstChineseRow) + column / kColumns;
    return std::array{static_cast<char>(0xA1 + row), static_cast<char>(0xA1 + column % kColumns)};
}

void appendPair(std::u16string& text, unsigned first, unsigned second, CodePageConverter& korean) {
    if (const auto place = tablePlaceOf(first, second)) {
        korean.append(text, {place->data(), place->size()});
    } else {
        text += hangulOf(first << 8U | second).value_or(kReplacementCharacter);
    }
}

}  // namespace

void appendJohab(std::u16string& text, std::string_view bytes, CodePageConverter& korean) {
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto first = static_cast<unsigned char>(bytes[at]);
        if (first < 0x80) {
            text += first;
        } else if (++at == bytes.size()) {
            text += kReplacementCharacter;
        } else {
            appendPair(text, first, static_cast<unsigned char>(bytes[at]), korean);
        }
    }
}

}  // namespace platform
