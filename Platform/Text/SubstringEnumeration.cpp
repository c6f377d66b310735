#include "Platform/Text/SubstringEnumeration.h"

#include <string>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

TextUnitKind kindOf(unsigned options) {
    switch (const unsigned unit = options & 0xFF) {
        case static_cast<unsigned>(TextUnitKind::Paragraph):
        case static_cast<unsigned>(TextUnitKind::Word):
        case static_cast<unsigned>(TextUnitKind::Sentence):
            return static_cast<TextUnitKind>(unit);
        default:
            raise(InvalidArgumentException("no units of the kind " + std::to_string(unit)));
    }
}

}  // namespace

void enumerateSubstringsInRange(std::u16string_view string, Range range, unsigned options,
                                const SubstringHandler& usingBlock) {
    if (!range.liesWithin(string.size())) {
        raise(RangeException("range {" + std::to_string(range.location) + ", " +
                             std::to_string(range.length) + "} of a text of " +
                             std::to_string(string.size()) + " units"));
    }
    const std::u16string_view part = string.substr(range.location, range.length);
    const auto units = TextUnits::over(part, kindOf(options));
    const bool isReverse = (options & kEnumerationReverse) != 0;
    const bool isRequired = (options & kEnumerationSubstringNotRequired) == 0;
    bool stop = false;
    bool isAtUnit = isReverse ? units->moveToLast() : units->moveToFirst();
    while (isAtUnit && !stop) {
        const TextUnit unit = units->unit();
        EnumeratedSubstring found;
        if (isRequired) {
            found.substring = part.substr(unit.substringRange.location, unit.substringRange.length);
        }
        found.substringRange = {range.location + unit.substringRange.location,
                                unit.substringRange.length};
        found.enclosingRange = {range.location + unit.enclosingRange.location,
                                unit.enclosingRange.length};
        usingBlock(found, stop);
        if (!stop) {
            isAtUnit = isReverse ? units->moveToPrevious() : units->moveToNext();
        }
    }
}

}  // namespace platform
