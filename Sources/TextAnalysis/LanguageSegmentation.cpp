// Which languages a text is written in, and over which ranges.

#include <algorithm>
#include <utility>

#include "Platform/Text/LanguageTagger.h"
#include "Sources/TextAnalysis/LanguageChunks.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace parlavox {

namespace {

using Segments = std::vector<std::shared_ptr<LanguageSegment>>;

/// Gives segments without an acceptable language that of the one before, those at the start that
/// of the first that has one, and joins neighbours of one language.
std::optional<Segments> merged(const Segments& segments, const AllowedLanguages& allowed) {
    const auto first = std::find_if(segments.begin(), segments.end(), [&](const auto& segment) {
        return isAcceptableLanguage(segment->languageCode, allowed);
    });
    if (first == segments.end()) {
        return std::nullopt;
    }
    std::string language = *(*first)->languageCode;
    Segments kept;
    for (const auto& segment : segments) {
        if (isAcceptableLanguage(segment->languageCode, allowed)) {
            language = *segment->languageCode;
        }
        if (!kept.empty() && kept.back()->languageCode == language) {
            LanguageSegment& last = *kept.back();
            last.range.length = segment->range.end() - last.range.location;
        } else {
            segment->languageCode = language;
            kept.push_back(segment);
        }
    }
    return kept;
}

}  // namespace

std::optional<Segments> TextAnalyzeUtils::languageSegmentsForString(
    std::u16string_view string, const AllowedLanguages& allowedLanguageCodes) {
    Segments segments;
    for (const Range& chunk : languageChunksOf(string)) {
        segments.push_back(LanguageSegment::initWithRange(
            chunk, languageTagOf(string.substr(chunk.location, chunk.length), allowedLanguageCodes,
                                 platform::LanguageTagger::dominantLanguageForString)));
    }
    return merged(segments, allowedLanguageCodes);
}

}  // namespace parlavox
