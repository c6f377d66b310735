#include "Sources/TextAnalysis/LanguageSpans.h"

#include <algorithm>

#include "Platform/Foundation/Exception.h"

namespace parlavox {

using platform::TextUnit;
using platform::TextUnitKind;
using platform::TextUnits;

namespace {

bool isLongEnough(const TextUnit& sentence) {
    // A sentence of that length is not blank: it begins and ends with something visible.
    return sentence.substringRange.length >= kMinimalSentenceLengthToDetectLanguage;
}

}  // namespace

LanguageSpanStarts::LanguageSpanStarts(std::u16string_view string)
    : openStops_(string), sentences_(TextUnits::over(string, TextUnitKind::Sentence)) {
}

std::uint64_t LanguageSpanStarts::startFor(std::uint64_t target) {
    if (target <= kMinimalSentenceLengthToDetectLanguage) {
        return 0;
    }
    const TextUnit sentence = sentenceWith(target);
    // The rule looks at the text up to the target alone, where a full stop may end a sentence that
    // goes on in the whole text.
    const auto end = openStops_.lastLongEnd(target, sentence);
    return end ? *end : startUpTo(sentence.enclosingRange.location);
}

/// The sentence of the whole text in which a position lies.
TextUnit LanguageSpanStarts::sentenceWith(std::uint64_t position) {
    const Range known = sentence_.enclosingRange;
    if (position < known.location || position >= known.end()) {
        static_cast<void>(sentences_->moveTo(position));
        sentence_ = sentences_->unit();
    }
    return sentence_;
}

/// Where the last sentence ends that is long enough and ends at a boundary or before.
std::uint64_t LanguageSpanStarts::startUpTo(std::uint64_t boundary) {
    std::uint64_t start = 0;
    for (std::uint64_t end = boundary; end > 0;) {
        if (end == boundary_) {
            start = start_;
            break;
        }
        const TextUnit sentence = sentenceWith(end - 1);
        if (isLongEnough(sentence)) {
            start = end;
            break;
        }
        end = sentence.enclosingRange.location;
    }
    boundary_ = boundary;
    start_ = start;
    return start;
}

LanguageSpanEnds::LanguageSpanEnds(std::u16string_view string, std::uint64_t start)
    : start_(start),
      textEnd_(string.size()),
      sentences_(TextUnits::over(string.substr(std::min<std::uint64_t>(start, string.size())),
                                 TextUnitKind::Sentence)) {
    if (start > textEnd_) {
        raise(platform::RangeException("a span's start at " + std::to_string(start) +
                                       " of a text of " + std::to_string(textEnd_) + " units"));
    }
    restart();
}

std::uint64_t LanguageSpanEnds::endFor(std::uint64_t location) {
    if (location < previousEnd_) {
        restart();
    }
    while (location >= end_ && isAtSentence_) {
        previousEnd_ = end_;
        goToNextEnd();
    }
    return location < end_ ? end_ : textEnd_;
}

void LanguageSpanEnds::restart() {
    isAtSentence_ = sentences_->moveToFirst();
    pendingStart_ = 0;
    pendingTextStart_ = 0;
    previousEnd_ = 0;
    end_ = 0;
}

/// Goes behind the next sentence, or run of short ones, that is long enough; to the text's end when
/// there is none.
void LanguageSpanEnds::goToNextEnd() {
    end_ = textEnd_;
    for (bool isFound = false; isAtSentence_ && !isFound;
         isAtSentence_ = sentences_->moveToNext()) {
        const TextUnit sentence = sentences_->unit();
        const Range substring{start_ + sentence.substringRange.location,
                              sentence.substringRange.length};
        const Range enclosing{start_ + sentence.enclosingRange.location,
                              sentence.enclosingRange.length};
        isFound = substring.length > 0 && isWhole(substring, enclosing);
        if (isFound) {
            end_ = enclosing.end();
        }
    }
}

/// Whether a sentence is long enough, with those that are pending. Zero means that none is, as in
/// segmentation.
bool LanguageSpanEnds::isWhole(Range substring, Range enclosing) {
    if (pendingStart_ != 0) {
        if (substring.end() - pendingTextStart_ < kMinimalSentenceLengthToDetectLanguage) {
            return false;
        }
        pendingStart_ = 0;
        pendingTextStart_ = 0;
        return true;
    }
    if (substring.length < kMinimalSentenceLengthToDetectLanguage) {
        pendingTextStart_ = substring.location;
        pendingStart_ = enclosing.location;
        return false;
    }
    return true;
}

LanguageSpans::LanguageSpans(std::u16string_view string, std::uint64_t start,
                             const AllowedLanguages& allowed, LanguageTagging tagging)
    : start_(start),
      text_(string.substr(start)),
      allowed_(allowed),
      tagging_(tagging),
      sentences_(TextUnits::over(text_, TextUnitKind::Sentence)) {
    restart();
}

std::optional<std::string> LanguageSpans::languageAtEnd(std::uint64_t end) {
    end -= start_;
    if (end == end_) {
        return language_;
    }
    if (end < end_) {
        restart();
    }
    end_ = end;
    while (isAtSentence_ && sentences_->unit().enclosingRange.end() <= end) {
        chunks_.add(sentences_->unit());
        isAtSentence_ = sentences_->moveToNext();
    }
    // The last chunk, with what is left, decides, unless it has no language.
    const auto& complete = chunks_.complete();
    language_ = languageOf(complete.empty() ? 0 : complete.back().location, end);
    if (!language_) {
        language_ = languageBeforeLastChunk();
    }
    return language_;
}

void LanguageSpans::restart() {
    isAtSentence_ = sentences_->moveToFirst();
    chunks_ = {};
    settled_ = 0;
    settledLanguage_.reset();
    end_ = 0;
    language_.reset();
}

std::optional<std::string> LanguageSpans::languageOf(std::uint64_t from, std::uint64_t to) const {
    std::optional<std::string> code =
        languageTagOf(text_.substr(from, to - from), allowed_, tagging_);
    return isAcceptableLanguage(code, allowed_) ? std::move(code) : std::nullopt;
}

/// The language of the last chunk with one, but for the last chunk.
std::optional<std::string> LanguageSpans::languageBeforeLastChunk() {
    const auto& complete = chunks_.complete();
    if (complete.empty()) {
        return std::nullopt;
    }
    const std::size_t last = complete.size() - 1;
    std::optional<std::string> language;
    for (std::size_t i = last; i > settled_ && !language; --i) {
        language = languageOf(complete[i - 1].location, complete[i - 1].end());
    }
    if (language) {
        settledLanguage_ = std::move(language);
    }
    settled_ = std::max(settled_, last);
    return settledLanguage_;
}

}  // namespace parlavox
