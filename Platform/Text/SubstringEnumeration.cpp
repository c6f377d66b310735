#include "Platform/Text/SubstringEnumeration.h"

#include <string>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

TextUnitKind kindIn(unsigned options) {
    const std::optional<TextUnitKind> kind = textUnitKindIn(options);
    if (!kind) {
        raise(InvalidArgumentException("no units of the kind " + std::to_string(options & 0xFF)));
    }
    return *kind;
}

/// A range of a text's part as one of the text.
Range shifted(Range range, std::uint64_t by) {
    return {by + range.location, range.length};
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
    const auto units = TextUnits::over(part, kindIn(options));
    const bool isReverse = (options & kEnumerationReverse) != 0;
    const bool isRequired = (options & kEnumerationSubstringNotRequired) == 0;
    bool stop = false;
    bool isAtUnit = isReverse ? units->moveToLast() : units->moveToFirst();
    while (isAtUnit) {
        EnumeratedSubstring found;
        found.substringRange = shifted(units->substringRange(), range.location);
        found.enclosingRange = shifted(units->enclosingRange(), range.location);
        if (isRequired) {
            found.substring =
                string.substr(found.substringRange.location, found.substringRange.length);
        }
        usingBlock(found, stop);
        isAtUnit = !stop && (isReverse ? units->moveToPrevious() : units->moveToNext());
    }
}

}  // namespace platform
