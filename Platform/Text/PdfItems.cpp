#include "Platform/Text/PdfItems.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace platform {
namespace {

/// In sizes: how exactly items begin below one another.
constexpr double kSameStart = 0.5;
/// How many dots lead to something.
constexpr int kFewestDots = 5;

bool isBullet(char32_t character) {
    constexpr std::u32string_view kBullets =
        U"\u2022\u2023\u2043\u25AA\u25AB\u25CF\u25CB\u25E6\u25A0\u25A1\u2756\u27A2";
    return kBullets.find(character) != std::u32string_view::npos;
}

bool isDigit(char32_t character) {
    return character >= U'0' && character <= U'9';
}
bool isSmallLetter(char32_t character) {
    return character >= U'a' && character <= U'z';
}

/// The number of an item and how it is written.
struct ItemNumber {
    enum Form : std::size_t { Dot, Bracket, Brackets, Letter, LetterBrackets, kForms };
    Form form = Dot;
    int value = 0;
};

/// "1.", "1)", "(1)", "a)" or "(a)" with a blank behind it.
std::optional<ItemNumber> numberOf(const PdfLineText& text) {
    constexpr std::size_t kMostDigits = 3;
    const auto& characters = text.characters;
    const auto at = [&](std::size_t index) {
        return index < characters.size() ? characters[index].character : 0;
    };
    const std::size_t first = at(0) == U'(' ? 1 : 0;
    std::size_t end = first;
    int value = 0;
    if (isSmallLetter(at(first))) {
        value = static_cast<int>(at(first) - U'a');
        end++;
    }
    const bool isLetter = end > first;
    for (; !isLetter && end < first + kMostDigits && isDigit(at(end)); end++) {
        value = 10 * value + static_cast<int>(at(end) - U'0');
    }
    if (end == first || at(end + 1) != U' ') {
        return std::nullopt;
    }
    if (at(end) == U')') {
        return ItemNumber{isLetter ? (first > 0 ? ItemNumber::LetterBrackets : ItemNumber::Letter)
                                   : (first > 0 ? ItemNumber::Brackets : ItemNumber::Bracket),
                          value};
    }
    if (at(end) == U'.' && first == 0 && !isLetter) {
        return ItemNumber{ItemNumber::Dot, value};
    }
    return std::nullopt;
}

/// What may tell a page.
bool isOfPageNumber(char32_t character) {
    constexpr std::u32string_view kRoman = U"ivxlcIVXLC";
    return isDigit(character) || kRoman.find(character) != std::u32string_view::npos;
}

}  // namespace

std::vector<bool> linesThatBeginItems(const PdfFlow& flow) {
    struct Last {
        std::size_t line = 0;
        int value = 0;
    };
    std::array<std::optional<Last>, ItemNumber::kForms> lasts;
    std::vector<bool> begin(flow.count());
    for (std::size_t i = 0; i < flow.count(); i++) {
        const PdfTextLine& line = flow.line(i);
        begin[i] = line.text.isBehindBullet || isBullet(line.text.characters.front().character);
        const auto number = numberOf(line.text);
        if (!number) {
            continue;
        }
        std::optional<Last>& last = lasts.at(number->form);
        if (last && number->value == last->value + 1 &&
            std::abs(flow.indent(i, last->line)) <= kSameStart * line.line.size) {
            begin[i] = begin[last->line] = true;
        }
        last = Last{i, number->value};
    }
    return begin;
}

bool endsInLeader(const PdfLineText& text) {
    constexpr int kLongestNumber = 6;
    auto character = text.characters.rbegin();
    const auto end = text.characters.rend();
    for (int i = 0; i < kLongestNumber && character != end && isOfPageNumber(character->character);
         i++) {
        ++character;
    }
    int dots = 0;
    for (; character != end && dots < kFewestDots; ++character) {
        if (character->character == U'.' || character->character == U'\u00B7' ||
            character->character == U'\u2026') {
            dots++;
        } else if (character->character != U' ') {
            break;
        }
    }
    return dots >= kFewestDots;
}

}  // namespace platform
