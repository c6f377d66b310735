#include "Sources/TextAnalysis/LanguageFinder.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace parlavox {

LanguageFinder::LanguageFinder(std::u16string_view string, AllowedLanguages allowed,
                               LanguageTagging tagging)
    : string_(string), allowed_(std::move(allowed)), tagging_(tagging) {
}

std::optional<std::string> LanguageFinder::languageCodeAtLocation(std::uint64_t location) {
    if (string_.empty() || location > string_.size()) {
        return std::nullopt;
    }
    location = std::min<std::uint64_t>(location, string_.size() - 1);
    if (!starts_) {
        starts_.emplace(string_);
    }
    const std::uint64_t start = starts_->startFor(location);
    Spans& spans = spansFrom(start);
    const std::uint64_t end = spans.ends->endFor(location);
    auto language = spans.languages->languageAtEnd(end);
    if (!language) {
        language = languageBefore(start);
    }
    return language ? language : languageBehind(end);
}

/// The spans from a start on. Open stops can make the start go back and forth between two places,
/// so two are remembered.
LanguageFinder::Spans& LanguageFinder::spansFrom(std::uint64_t start) {
    if (!spans_[0].isFrom(start)) {
        std::swap(spans_[0], spans_[1]);
    }
    Spans& spans = spans_[0];
    if (!spans.isFrom(start)) {
        spans.start = start;
        spans.ends = std::make_unique<LanguageSpanEnds>(string_, start);
        spans.languages = std::make_unique<LanguageSpans>(string_, start, allowed_, tagging_);
    }
    return spans;
}

/// Looks at the spans that end at `end` and before, from the last one to the first.
std::optional<std::string> LanguageFinder::languageBefore(std::uint64_t end) {
    std::vector<std::uint64_t> ends;
    std::optional<std::string> language;
    while (end > 0 && !language) {
        if (const auto known = before_.find(end); known != before_.end()) {
            language = known->second;
            break;
        }
        ends.push_back(end);
        const std::uint64_t start = starts_->startFor(end - 1);
        language =
            LanguageSpans(string_.substr(0, end), start, allowed_, tagging_).languageAtEnd(end);
        end = start;
    }
    for (const std::uint64_t seen : ends) {
        before_[seen] = language;
    }
    return language;
}

/// Looks at the spans from `start` on.
std::optional<std::string> LanguageFinder::languageBehind(std::uint64_t start) {
    std::vector<std::uint64_t> starts;
    std::optional<std::string> language;
    while (start < string_.size() && !language) {
        if (const auto known = behind_.find(start); known != behind_.end()) {
            language = known->second;
            break;
        }
        starts.push_back(start);
        const std::uint64_t end = LanguageSpanEnds(string_, start).endFor(start);
        language = firstLanguageIn(string_.substr(start, end - start));
        start = end;
    }
    for (const std::uint64_t seen : starts) {
        behind_[seen] = language;
    }
    return language;
}

std::optional<std::string> LanguageFinder::firstLanguageIn(std::u16string_view span) const {
    for (const Range& chunk : languageChunksOf(span)) {
        std::optional<std::string> code =
            languageTagOf(span.substr(chunk.location, chunk.length), allowed_, tagging_);
        if (isAcceptableLanguage(code, allowed_)) {
            return code;
        }
    }
    return std::nullopt;
}

}  // namespace parlavox
