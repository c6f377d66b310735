// The language at one position of a text.

#include <algorithm>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CharacterSet.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace parlavox {

using platform::EnumeratedSubstring;
using platform::TextUnitKind;

namespace {

constexpr auto kSentences = static_cast<unsigned>(TextUnitKind::Sentence);

bool isLongEnough(const EnumeratedSubstring& sentence) {
    return sentence.substringRange.length >= kMinimalSentenceLengthToDetectLanguage;
}

/// The language of the last segment of a stretch, or of its first.
enum class Side : bool { First, Last };

std::optional<std::string> languageOf(std::u16string_view stretch, Side side,
                                      const AllowedLanguages& allowed) {
    const auto segments = TextAnalyzeUtils::languageSegmentsForString(stretch, allowed);
    if (!segments) {
        return std::nullopt;
    }
    return (side == Side::Last ? segments->back() : segments->front())->languageCode;
}

/// Looks at the spans that end at `end` and before, from the last one to the first.
std::optional<std::string> languageBefore(std::u16string_view string, std::uint64_t start,
                                          std::uint64_t end, const AllowedLanguages& allowed) {
    while (true) {
        auto language = languageOf(string.substr(start, end - start), Side::Last, allowed);
        if ((language && !language->empty()) || start == 0) {
            return language;
        }
        end = start;
        start =
            TextAnalyzeUtils::startLocationForDeterminingLanguageSegmentsForString(string, end - 1);
    }
}

/// Looks at the spans from `start` on.
std::optional<std::string> languageBehind(std::u16string_view string, std::uint64_t start,
                                          const AllowedLanguages& allowed) {
    std::optional<std::string> language;
    while (start < string.size() && (!language || language->empty())) {
        const std::uint64_t end =
            TextAnalyzeUtils::endLocationForDeterminingLanguageSegmentsForString(string, start,
                                                                                 start);
        language = languageOf(string.substr(start, end - start), Side::First, allowed);
        start = end;
    }
    return language;
}

}  // namespace

std::uint64_t TextAnalyzeUtils::startLocationForDeterminingLanguageSegmentsForString(
    std::u16string_view string, std::uint64_t targetLocation) {
    if (targetLocation <= kMinimalSentenceLengthToDetectLanguage) {
        return 0;
    }
    std::uint64_t start = 0;
    platform::enumerateSubstringsInRange(
        string, {0, targetLocation + 1}, kSentences | platform::kEnumerationReverse,
        [&](const EnumeratedSubstring& sentence, bool& stop) {
            // A sentence of that length is not blank: it begins and ends with something visible.
            const Range enclosing = sentence.enclosingRange;
            const bool holdsTarget =
                enclosing.location <= targetLocation && targetLocation < enclosing.end();
            if (isLongEnough(sentence) && !holdsTarget) {
                start = enclosing.end();
                stop = true;
            }
        });
    return start;
}

std::uint64_t TextAnalyzeUtils::endLocationForDeterminingLanguageSegmentsForString(
    std::u16string_view string, std::uint64_t atLocation, std::uint64_t startLocation) {
    std::uint64_t end = string.size();
    // Zero means that no run of short sentences is pending, as in segmentation.
    std::uint64_t pendingStart = 0;
    std::uint64_t pendingTextStart = 0;
    platform::enumerateSubstringsInRange(string, {startLocation, string.size() - startLocation},
                                         kSentences,
                                         [&](const EnumeratedSubstring& sentence, bool& stop) {
                                             const Range substring = sentence.substringRange;
                                             const Range enclosing = sentence.enclosingRange;
                                             if (isStringEmpty(sentence.substring)) {
                                                 return;
                                             }
                                             bool isWhole = isLongEnough(sentence);
                                             if (pendingStart != 0) {
                                                 isWhole = substring.end() - pendingTextStart >=
                                                           kMinimalSentenceLengthToDetectLanguage;
                                                 if (isWhole) {
                                                     pendingStart = 0;
                                                     pendingTextStart = 0;
                                                 }
                                             } else if (!isWhole) {
                                                 pendingTextStart = substring.location;
                                                 pendingStart = enclosing.location;
                                             }
                                             if (isWhole && atLocation < enclosing.end()) {
                                                 end = enclosing.end();
                                                 stop = true;
                                             }
                                         });
    return end;
}

std::optional<std::string> TextAnalyzeUtils::languageCodeForString(
    std::u16string_view string, std::uint64_t atLocation,
    const AllowedLanguages& allowedLanguageCodes) {
    if (string.empty() || atLocation > string.size()) {
        return std::nullopt;
    }
    const std::uint64_t location = std::min<std::uint64_t>(atLocation, string.size() - 1);
    const std::uint64_t start =
        startLocationForDeterminingLanguageSegmentsForString(string, location);
    const std::uint64_t end =
        endLocationForDeterminingLanguageSegmentsForString(string, location, start);
    auto language = languageBefore(string, start, end, allowedLanguageCodes);
    return language ? language : languageBehind(string, end, allowedLanguageCodes);
}

std::optional<std::string> TextAnalyzeUtils::languageForLanguageWithCode(
    const std::string& code, const AllowedLanguages& fromAllowedLanguages) {
    if (!fromAllowedLanguages) {
        return std::nullopt;
    }
    for (const std::string& allowed : *fromAllowedLanguages) {
        if (!code.starts_with(allowed)) {
            continue;
        }
        const std::u16string rest =
            platform::utf16FromUtf8Lossy(std::string_view(code).substr(allowed.size()));
        if (rest.empty() || !platform::isLetter(rest.front())) {
            return allowed;
        }
    }
    return std::nullopt;
}

}  // namespace parlavox
