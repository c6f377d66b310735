// The units of a text in a form that tests can compare and print.

#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Platform/Text/TextUnits.h"

namespace platform {

inline void PrintTo(const Range& range, std::ostream* out) {
    *out << '{' << range.location << ", " << range.length << '}';
}

inline void PrintTo(const TextUnit& unit, std::ostream* out) {
    PrintTo(unit.substringRange, out);
    *out << " in ";
    PrintTo(unit.enclosingRange, out);
}

}  // namespace platform

namespace test {

/// All units of the part `range` of a text, in the order in which they are given.
inline std::vector<platform::TextUnit> unitsIn(std::u16string_view text, platform::Range range,
                                               unsigned options) {
    std::vector<platform::TextUnit> units;
    platform::enumerateSubstringsInRange(
        text, range, options, [&](const platform::EnumeratedSubstring& unit, bool&) {
            units.push_back({unit.substringRange, unit.enclosingRange});
        });
    return units;
}

/// The units' own texts, and their texts with what follows them.
struct UnitTexts {
    std::vector<std::string> own;
    std::vector<std::string> enclosing;
};

inline UnitTexts unitTexts(std::u16string_view text, unsigned options) {
    const auto textOf = [&](platform::Range range) {
        return platform::utf8FromUtf16(text.substr(range.location, range.length));
    };
    UnitTexts texts;
    for (const platform::TextUnit& unit : unitsIn(text, {0, text.size()}, options)) {
        texts.own.push_back(textOf(unit.substringRange));
        texts.enclosing.push_back(textOf(unit.enclosingRange));
    }
    return texts;
}

}  // namespace test
