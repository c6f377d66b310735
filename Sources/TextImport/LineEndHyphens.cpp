#include "Sources/TextImport/LineEndHyphens.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

#include "Platform/Foundation/Exception.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Platform/Text/UnitSearch.h"

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

constexpr std::u16string_view kHyphenAndBlank = u"- ";

/// Where the text has its next "- " at `from` or behind it; npos when there is none.
std::size_t findHyphenAndBlank(std::u16string_view text, std::size_t from) {
    while (true) {
        const std::size_t hyphen = platform::findUnit(text, kHyphenAndBlank.front(), from);
        if (hyphen == std::u16string_view::npos ||
            text.substr(hyphen).starts_with(kHyphenAndBlank)) {
            return hyphen;
        }
        from = hyphen + 1;
    }
}

}  // namespace

bool LineEndHyphens::shouldDelete(Range hyphen) {
    if (!hyphen.liesWithin(string_.size())) {
        raise(platform::RangeException("a hyphen at " + std::to_string(hyphen.location) +
                                       " of a text of " + std::to_string(string_.size()) +
                                       " units"));
    }
    const auto word = brokenWordAt(hyphen);
    if (!word) {
        return false;
    }
    const auto language = checkedLanguageOf(*word);
    return !language || reasonFor(*word, *language) != HyphenReason::Compound;
}

std::vector<HyphenDecision> LineEndHyphens::decisions() {
    std::vector<HyphenDecision> decisions;
    std::map<std::string, std::vector<std::size_t>> placesByLanguage;
    for (std::size_t found = findHyphenAndBlank(string_, 0); found != std::u16string_view::npos;
         found = findHyphenAndBlank(string_, found + kHyphenAndBlank.size())) {
        const auto word = brokenWordAt({found, kHyphenAndBlank.size()});
        if (!word) {
            continue;
        }
        auto language = checkedLanguageOf(*word);
        if (language) {
            placesByLanguage[*language].push_back(decisions.size());
        }
        decisions.push_back({word->hyphen, word->apart, std::move(language)});
    }
    for (const auto& [language, places] : placesByLanguage) {
        for (const std::size_t place : places) {
            HyphenDecision& decision = decisions[place];
            decision.reason = reasonFor({decision.hyphen, decision.apart}, language);
        }
    }
    return decisions;
}

std::vector<Range> LineEndHyphens::rangesToDelete() {
    std::vector<Range> ranges;
    for (const HyphenDecision& decision : decisions()) {
        if (decision.isDeleted()) {
            ranges.push_back(decision.hyphen);
        }
    }
    return ranges;
}

/// The word that a hyphen breaks; nothing when it does not stand directly between two words.
std::optional<LineEndHyphens::BrokenWord> LineEndHyphens::brokenWordAt(Range hyphen) const {
    if (hyphen.location == 0 || hyphen.end() == string_.size()) {
        return std::nullopt;
    }
    const auto start = startOfWordBefore(hyphen.location);
    const auto end = start ? endOfWordBehind(hyphen.end()) : std::nullopt;
    return end ? std::optional(BrokenWord{hyphen, {*start, *end - *start}}) : std::nullopt;
}

/// The language whose spelling decides; nothing when none does.
std::optional<std::string> LineEndHyphens::checkedLanguageOf(const BrokenWord& word) {
    auto language = languages_.languageCodeAtLocation(word.apart.location);
    return language && canCheck(*language) ? std::move(language) : std::nullopt;
}

HyphenReason LineEndHyphens::reasonFor(const BrokenWord& word, const std::string& language) const {
    const std::u16string_view apart = string_.substr(word.apart.location, word.apart.length);
    std::u16string joined(apart);
    joined.erase(word.hyphen.location - word.apart.location, word.hyphen.length);
    const auto isRight = [&](std::u16string_view text) {
        return checker_.checkSpellingOfString(text, 0, language).length == 0;
    };
    if (isRight(joined)) {
        return HyphenReason::JoinedRight;
    }
    return isRight(apart) ? HyphenReason::Compound : HyphenReason::ApartWrong;
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
