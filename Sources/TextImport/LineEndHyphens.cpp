#include "Sources/TextImport/LineEndHyphens.h"

#include <algorithm>

#include "Platform/Foundation/Exception.h"
#include "Platform/Text/SubstringEnumeration.h"

namespace parlavox {

using platform::EnumeratedSubstring;
using platform::Range;

namespace {

constexpr unsigned kWords = static_cast<unsigned>(platform::TextUnitKind::Word) |
                            platform::kEnumerationSubstringNotRequired;

/// The first word that a walk over a part of a text meets.
std::optional<Range> firstWord(std::u16string_view string, Range part, unsigned options) {
    std::optional<Range> word;
    platform::enumerateSubstringsInRange(string, part, options,
                                         [&](const EnumeratedSubstring& unit, bool& stop) {
                                             word = unit.substringRange;
                                             stop = true;
                                         });
    return word;
}

}  // namespace

bool LineEndHyphens::shouldDelete(Range hyphen) {
    if (!hyphen.liesWithin(string_.size())) {
        raise(platform::RangeException("a hyphen at " + std::to_string(hyphen.location) +
                                       " of a text of " + std::to_string(string_.size()) +
                                       " units"));
    }
    if (hyphen.location == 0 || hyphen.end() == string_.size()) {
        return false;
    }
    const auto start = startOfWordBefore(hyphen.location);
    const auto end = start ? endOfWordBehind(hyphen.end()) : std::nullopt;
    if (!end) {
        return false;
    }
    const auto language = languages_.languageCodeAtLocation(*start);
    if (!language || !canCheck(*language)) {
        return true;
    }
    const std::u16string_view apart = string_.substr(*start, *end - *start);
    std::u16string joined(apart);
    joined.erase(hyphen.location - *start, hyphen.length);
    const auto isRight = [&](std::u16string_view text) {
        return checker_.checkSpellingOfString(text, 0, *language).length == 0;
    };
    return isRight(joined) || !isRight(apart);
}

/// Where the word begins that ends at `end`; nothing when none does.
std::optional<std::uint64_t> LineEndHyphens::startOfWordBefore(std::uint64_t end) const {
    const std::uint64_t length = std::min(end, kMaxLengthToFindNextWord);
    const auto word =
        firstWord(string_, {end - length, length}, kWords | platform::kEnumerationReverse);
    return word && word->end() == end ? std::optional(word->location) : std::nullopt;
}

/// Where the word ends that begins at `start`; nothing when none does.
std::optional<std::uint64_t> LineEndHyphens::endOfWordBehind(std::uint64_t start) const {
    const std::uint64_t length =
        std::min<std::uint64_t>(string_.size() - start, kMaxLengthToFindNextWord);
    const auto word = firstWord(string_, {start, length}, kWords);
    return word && word->location == start ? std::optional(word->end()) : std::nullopt;
}

bool LineEndHyphens::canCheck(const std::string& language) const {
    return std::any_of(
        availableLanguages_.begin(), availableLanguages_.end(),
        [&](const std::string& available) { return available.starts_with(language); });
}

}  // namespace parlavox
