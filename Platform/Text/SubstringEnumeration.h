// Walks a text's paragraphs, sentences or words, forwards or backwards.
//
// Positions count UTF-16 units. Any thread at once; the text must not change during the walk.

#pragma once

#include <functional>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Range.h"
#include "Platform/Text/TextUnits.h"

namespace platform {

/// The platform's options: a TextUnitKind as the low byte, with these flags.
enum SubstringEnumerationFlags : unsigned {
    kEnumerationReverse = 0x100,
    kEnumerationSubstringNotRequired = 0x200,
};

/// One unit, in positions of the whole text.
struct EnumeratedSubstring {
    /// Nothing when it is not required.
    std::optional<std::u16string_view> substring;
    Range substringRange;
    Range enclosingRange;
};

/// Is given each unit in turn; the walk ends when it sets `stop`.
using SubstringHandler = std::function<void(const EnumeratedSubstring& unit, bool& stop)>;

/// Gives `handler` the units of the text's part `range` in order, or from the last to the first
/// with kEnumerationReverse; both ways the same ones. What lies outside of the range is not seen: a
/// unit that it cuts is given as it is cut. Costs what is visited.
///
/// The kinds of units are those of TextUnitKind; the flag of localized units has no effect, as they
/// follow the root locale. Raises RangeException when the range does not lie
/// in the text, and InvalidArgumentException for another unit than those.
///
/// Selector: enumerateSubstringsInRange:options:usingBlock:
void enumerateSubstringsInRange(std::u16string_view string, Range range, unsigned options,
                                const SubstringHandler& usingBlock);

}  // namespace platform
