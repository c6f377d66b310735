#include "Platform/Text/PdfDirection.h"

#include <algorithm>
#include <cstddef>
#include <span>

#include "Platform/Text/Modules/UnicodeModule.h"

namespace platform {
namespace {

using Cells = std::span<PdfCell>;

const UnicodeFunctions& unicode() {
    return moduleFunctions<UnicodeFunctions>();
}

bool isLeft(const PdfCell& cell) {
    return unicode().directionOf(cell.character) == CharacterDirection::FromTheLeft;
}
bool isRight(const PdfCell& cell) {
    return unicode().directionOf(cell.character) == CharacterDirection::FromTheRight;
}
bool isNumber(const PdfCell& cell) {
    return unicode().directionOf(cell.character) == CharacterDirection::Number;
}
bool isLeftOrNumber(const PdfCell& cell) {
    return isLeft(cell) || isNumber(cell);
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

/// Turns numbers, with the signs between their digits.
void turnNumbers(Cells cells) {
    forStretches(
        cells, isNumber, [](const PdfCell& cell) { return isBlank(cell) || isRight(cell); }, turn);
}

}  // namespace

bool isPdfMark(char32_t character) {
    constexpr char32_t kFirstMark = 0x300;
    return character >= kFirstMark && unicode().directionOf(character) == CharacterDirection::Mark;
}

void orderAsRead(std::vector<PdfCell>& cells, bool readsFromTheRight) {
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
