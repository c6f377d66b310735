#include "Platform/Text/PdfDirection.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace platform {
namespace {

using Cells = std::span<PdfCell>;

const UnicodeFunctions& unicode() {
    return moduleFunctions<UnicodeFunctions>();
}

bool isLeft(const PdfCell& cell) {
    return cell.direction == CharacterDirection::FromTheLeft;
}
bool isRight(const PdfCell& cell) {
    return cell.direction == CharacterDirection::FromTheRight;
}
bool isNumber(const PdfCell& cell) {
    return cell.direction == CharacterDirection::Number;
}
bool isLeftOrNumber(const PdfCell& cell) {
    return isLeft(cell) || isNumber(cell);
}
bool isLetter(const PdfCell& cell) {
    return isLeft(cell) || isRight(cell);
}
bool isBlank(const PdfCell& cell) {
    return cell.character == U' ';
}

/// Reads the cells the other way; brackets open where they closed.
void turn(Cells cells) {
    std::reverse(cells.begin(), cells.end());
    for (PdfCell& cell : cells) {
        cell.character = unicode().mirrored(cell.character);
    }
}

/// Calls `use` with every stretch that begins and ends with a cell of the kind and holds none that
/// ends it.
template <class IsOfKind, class Ends, class Use>
void forStretches(Cells cells, IsOfKind isOfKind, Ends ends, Use use) {
    std::size_t at = 0;
    while (at < cells.size()) {
        if (!isOfKind(cells[at])) {
            at++;
            continue;
        }
        std::size_t end = at + 1;
        std::size_t next = end;
        for (; next < cells.size() && !ends(cells[next]); next++) {
            end = isOfKind(cells[next]) ? next + 1 : end;
        }
        use(cells.subspan(at, end - at));
        at = std::max(end, next);
    }
}

void turnNumbers(Cells cells) {
    forStretches(
        cells, isNumber, [](const PdfCell& cell) { return !isNumber(cell); }, turn);
}

bool isOneOf(const PdfCell& cell, std::u32string_view characters) {
    return characters.find(cell.character) != std::u32string_view::npos;
}

/// Whether a sign parts the digits of a number, and whether it may stand before one, too.
bool isSeparator(const PdfCell& cell) {
    return isOneOf(cell, U",./:\u060C\u2044\uFF0C\uFF0E\uFF0F\uFF1A");
}
bool isSign(const PdfCell& cell) {
    return isOneOf(cell, U"+-\u2212\uFB29\uFF0B\uFF0D");
}

/// Whether a sign stands beside numbers, as that of percent and those of currencies do.
bool isUnit(const PdfCell& cell) {
    return isOneOf(cell,
                   U"#$%\u00A2\u00A3\u00A4\u00A5\u00B0\u00B1\u2030\u2031\uFF03\uFF04\uFF05") ||
           (cell.character >= 0x20A0 && cell.character <= 0x20CF);
}

/// Whether a letter is one of those behind which digits are arranged as Arabic ones are.
bool isArabic(const PdfCell& cell) {
    const char32_t letter = cell.character;
    return isRight(cell) &&
           ((letter >= 0x600 && letter <= 0x7BF) || (letter >= 0x860 && letter <= 0x8FF) ||
            (letter >= 0xFB50 && letter <= 0xFEFE) || letter >= 0x1EC70);
}

bool isArabicDigit(const PdfCell& cell) {
    return cell.character >= 0x660 && cell.character <= 0x66C;
}

/// Makes numbers of the signs that belong to those in `cells`, which have no letters.
void joinSigns(Cells cells, bool areArabic) {
    const auto isPlainNumber = [&](std::size_t index) {
        return isNumber(cells[index]) && !areArabic && !isArabicDigit(cells[index]);
    };
    const auto join = [&](std::size_t index) {
        cells[index].direction = CharacterDirection::Number;
    };
    for (std::size_t i = 1; i + 1 < cells.size(); i++) {
        const bool isBetween = isNumber(cells[i - 1]) && isNumber(cells[i + 1]);
        if (isBetween && (isSeparator(cells[i]) ||
                          (isSign(cells[i]) && isPlainNumber(i - 1) && isPlainNumber(i + 1)))) {
            join(i);
        }
    }
    for (std::size_t i = 1; i < cells.size(); i++) {
        if (isPlainNumber(i - 1) && isUnit(cells[i])) {
            join(i);
        }
    }
    for (std::size_t i = cells.size(); i > 1; i--) {
        if (!isPlainNumber(i - 1)) {
            continue;
        }
        const bool isBehindBlank = i > 2 && isBlank(cells[i - 3]);
        if (isUnit(cells[i - 2]) || (isSign(cells[i - 2]) && isBehindBlank)) {
            join(i - 2);
        }
    }
}

/// Finds the directions of the cells of a line.
void findDirections(Cells cells) {
    for (PdfCell& cell : cells) {
        cell.direction = unicode().directionOf(cell.character);
    }
    auto start = cells.begin();
    while (start != cells.end()) {
        const auto end = std::find_if(start, cells.end(), isLetter);
        const PdfCell* const before = start == cells.begin() ? nullptr : &*(start - 1);
        const PdfCell* const behind = end == cells.end() ? nullptr : &*end;
        const bool isBesideLeft =
            (before != nullptr && isLeft(*before)) || (behind != nullptr && isLeft(*behind));
        // Numbers are read behind the letters on their right.
        const PdfCell* const last = behind != nullptr ? behind : before;
        joinSigns({start, end}, !isBesideLeft && last != nullptr && isArabic(*last));
        start = end == cells.end() ? end : end + 1;
    }
}

}  // namespace

bool isPdfMark(char32_t character) {
    constexpr char32_t kFirstMark = 0x300;
    return character >= kFirstMark && unicode().directionOf(character) == CharacterDirection::Mark;
}

void orderAsRead(std::vector<PdfCell>& cells, bool readsFromTheRight) {
    findDirections(cells);
    if (!readsFromTheRight) {
        forStretches(cells, isRight, isLeft, [](Cells stretch) {
            turn(stretch);
            turnNumbers(stretch);
        });
        return;
    }
    turn(cells);
    forStretches(cells, isLeftOrNumber, isRight, [](Cells stretch) {
        if (std::any_of(stretch.begin(), stretch.end(), isLeft)) {
            turn(stretch);
        } else {
            turnNumbers(stretch);
        }
    });
}

}  // namespace platform
