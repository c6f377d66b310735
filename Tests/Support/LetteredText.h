// Attributed texts in a form that tests can write and compare: one letter for the attributes of
// each character.

#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Text/AttributedString.h"

namespace test {

/// Attributes by the letter that stands for them; '-' is for none.
inline platform::Attributes attributesOf(char letter) {
    static std::map<char, platform::Attributes> known;
    auto& attributes = known[letter];
    if (attributes == nullptr && letter != '-') {
        platform::Dictionary dictionary;
        dictionary.set("Letter", platform::Value(static_cast<int>(letter)));
        attributes = std::make_shared<const platform::Dictionary>(std::move(dictionary));
    }
    return attributes;
}

/// Text whose characters have the attributes that `letters` tells, in runs as long as can be.
inline platform::AttributedString letteredText(std::u16string characters,
                                               const std::string& letters) {
    std::vector<platform::AttributeRun> runs;
    for (const char letter : letters) {
        platform::appendRun(runs, 1, attributesOf(letter));
    }
    return {std::make_shared<const std::u16string>(std::move(characters)), std::move(runs)};
}

/// The runs as letters, a "|" between each two of them.
inline std::string lettersOf(const platform::AttributedString& text) {
    std::string letters;
    for (const platform::AttributeRun& run : text.runs()) {
        const auto* const value =
            run.attributes == nullptr ? nullptr : run.attributes->find("Letter");
        letters += letters.empty() ? "" : "|";
        letters.append(run.length, value == nullptr ? '-' : static_cast<char>(*value->integer()));
    }
    return letters;
}

}  // namespace test
