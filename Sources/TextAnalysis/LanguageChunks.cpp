#include "Sources/TextAnalysis/LanguageChunks.h"

#include <algorithm>

namespace parlavox {
namespace {

constexpr char kUndetermined[] = "und";

}  // namespace

void LanguageChunks::add(const platform::TextUnit& sentence) {
    const Range substring = sentence.substringRange;
    const Range enclosing = sentence.enclosingRange;
    if (substring.length == 0) {
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

void LanguageChunks::append(std::uint64_t start, std::uint64_t end) {
    const std::uint64_t from = complete_.empty() ? 0 : start;
    complete_.push_back({from, end - from});
}

std::vector<Range> languageChunksOf(std::u16string_view string) {
    LanguageChunks chunks;
    const auto sentences = platform::TextUnits::over(string, platform::TextUnitKind::Sentence);
    for (bool isAtOne = sentences->moveToFirst(); isAtOne; isAtOne = sentences->moveToNext()) {
        chunks.add(sentences->unit());
    }
    std::vector<Range> ranges = chunks.complete();
    if (ranges.empty()) {
        return {{0, string.size()}};
    }
    ranges.back().length = string.size() - ranges.back().location;
    return ranges;
}

std::string languageTagOf(std::u16string_view stretch, const AllowedLanguages& allowed,
                          LanguageTagging tagging) {
    // The platform tells one language for a stretch of text, and gives it to each of its words.
    std::string tag = tagging(stretch);
    if (tag != kUndetermined) {
        tag = TextAnalyzeUtils::languageForLanguageWithCode(tag, allowed).value_or(tag);
    }
    return tag;
}

bool isAcceptableLanguage(const std::optional<std::string>& code, const AllowedLanguages& allowed) {
    return code && *code != kUndetermined &&
           (!allowed || std::find(allowed->begin(), allowed->end(), *code) != allowed->end());
}

}  // namespace parlavox
