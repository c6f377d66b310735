// The language at one position of a text.

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CharacterSet.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Sources/TextAnalysis/LanguageFinder.h"
#include "Sources/TextAnalysis/LanguageSpans.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace parlavox {

using platform::EnumeratedSubstring;
using platform::TextUnitKind;

namespace {

constexpr auto kSentences = static_cast<unsigned>(TextUnitKind::Sentence);

bool isLongEnough(const EnumeratedSubstring& sentence) {
    return sentence.substringRange.length >= kMinimalSentenceLengthToDetectLanguage;
}

}  // namespace

std::uint64_t TextAnalyzeUtils::startLocationForDeterminingLanguageSegmentsForString(
    std::u16string_view string, std::uint64_t targetLocation) {
    if (targetLocation <= kMinimalSentenceLengthToDetectLanguage) {
        return 0;
    }
    // The last location of 64 bits is no less outside of the text.
    const std::uint64_t lengthUpTo = std::max(targetLocation, targetLocation + 1);
    std::uint64_t start = 0;
    platform::enumerateSubstringsInRange(
        string, {0, lengthUpTo}, kSentences | platform::kEnumerationReverse,
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
    return LanguageSpanEnds(string, startLocation).endFor(atLocation);
}

std::optional<std::string> TextAnalyzeUtils::languageCodeForString(
    std::u16string_view string, std::uint64_t atLocation,
    const AllowedLanguages& allowedLanguageCodes) {
    return LanguageFinder(string, allowedLanguageCodes).languageCodeAtLocation(atLocation);
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
