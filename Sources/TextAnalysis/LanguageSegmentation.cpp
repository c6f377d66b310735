// Which languages a text is written in, and over which ranges.

#include <algorithm>
#include <utility>

#include "Platform/Text/LanguageTagger.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace parlavox {

using platform::EnumeratedSubstring;
using platform::TextUnitKind;

namespace {

using Segments = std::vector<std::shared_ptr<LanguageSegment>>;

constexpr char kUndetermined[] = "und";

/// Collects stretches of text that are long enough for their language to be told.
///
/// Short and blank sentences go with the stretch that follows them. Zero is both a position and the
/// sign that nothing is pending, by intention: nothing is lost, as the first chunk begins at 0
/// anyway. A pending blank sentence does not set where its text begins, by intention, too: the next
/// sentence that ends at the minimal length or later closes its chunk, however short it is.
class Chunks {
public:
    void add(const EnumeratedSubstring& sentence) {
        const Range substring = sentence.substringRange;
        const Range enclosing = sentence.enclosingRange;
        if (TextAnalyzeUtils::isStringEmpty(sentence.substring)) {
            pendingStart_ = pendingStart_ == 0 ? enclosing.location : pendingStart_;
        } else if (pendingStart_ != 0) {
            if (substring.end() - pendingTextStart_ >= kMinimalSentenceLengthToDetectLanguage) {
                append(pendingStart_, enclosing.end());
                pendingStart_ = 0;
                pendingTextStart_ = 0;
            }
        } else if (substring.length < kMinimalSentenceLengthToDetectLanguage) {
            pendingTextStart_ = substring.location;
            pendingStart_ = enclosing.location;
        } else {
            append(enclosing.location, enclosing.end());
        }
    }

    /// The stretches, which together are the whole text.
    std::vector<Range> finish(std::uint64_t length) && {
        if (ranges_.empty()) {
            return {{0, length}};
        }
        ranges_.back().length = length - ranges_.back().location;
        return std::move(ranges_);
    }

private:
    void append(std::uint64_t start, std::uint64_t end) {
        const std::uint64_t from = ranges_.empty() ? 0 : start;
        ranges_.push_back({from, end - from});
    }

    std::vector<Range> ranges_;
    std::uint64_t pendingStart_ = 0;
    std::uint64_t pendingTextStart_ = 0;
};

std::vector<Range> chunksOf(std::u16string_view string) {
    Chunks chunks;
    platform::enumerateSubstringsInRange(
        string, {0, string.size()}, static_cast<unsigned>(TextUnitKind::Sentence),
        [&](const EnumeratedSubstring& sentence, bool&) { chunks.add(sentence); });
    return std::move(chunks).finish(string.size());
}

std::shared_ptr<LanguageSegment> segmentOf(std::u16string_view string, Range chunk,
                                           const AllowedLanguages& allowed) {
    // The platform tells one language for a stretch of text, and gives it to each of its words.
    std::string tag = platform::LanguageTagger::dominantLanguageForString(
        string.substr(chunk.location, chunk.length));
    if (tag != kUndetermined) {
        tag = TextAnalyzeUtils::languageForLanguageWithCode(tag, allowed).value_or(tag);
    }
    return LanguageSegment::initWithRange(chunk, std::move(tag));
}

bool isAcceptable(const std::optional<std::string>& code, const AllowedLanguages& allowed) {
    return code && *code != kUndetermined &&
           (!allowed || std::find(allowed->begin(), allowed->end(), *code) != allowed->end());
}

/// Gives segments without an acceptable language that of the one before, those at the start that
/// of the first that has one, and joins neighbours of one language.
std::optional<Segments> merged(const Segments& segments, const AllowedLanguages& allowed) {
    const auto first = std::find_if(segments.begin(), segments.end(), [&](const auto& segment) {
        return isAcceptable(segment->languageCode, allowed);
    });
    if (first == segments.end()) {
        return std::nullopt;
    }
    std::string language = *(*first)->languageCode;
    Segments kept;
    for (const auto& segment : segments) {
        if (isAcceptable(segment->languageCode, allowed)) {
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
    for (const Range& chunk : chunksOf(string)) {
        segments.push_back(segmentOf(string, chunk, allowedLanguageCodes));
    }
    return merged(segments, allowedLanguageCodes);
}

}  // namespace parlavox
