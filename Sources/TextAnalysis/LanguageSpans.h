// The spans of text that are asked for the language at a position: where they begin, where they
// end, and which language they end in.
//
// For positions that come in ascending order the objects remember what they have seen, so that many
// positions cost little more than one walk over the text around them. Other orders give the same
// answers. An object belongs to one thread at a time; its text must stay as it is while it lives.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Text/TextUnits.h"
#include "Sources/TextAnalysis/LanguageChunks.h"
#include "Sources/TextAnalysis/OpenStops.h"

namespace parlavox {

/// Where spans begin.
class LanguageSpanStarts {
public:
    explicit LanguageSpanStarts(std::u16string_view string);

    /// What startLocationForDeterminingLanguageSegmentsForString:targetLocation: answers.
    ///
    /// Requires: `target` lies before the text's end.
    [[nodiscard]] std::uint64_t startFor(std::uint64_t target);

private:
    [[nodiscard]] platform::TextUnit sentenceWith(std::uint64_t position);
    [[nodiscard]] std::uint64_t startUpTo(std::uint64_t boundary);

    OpenStops openStops_;
    /// The sentences of the whole text, and the one that was asked for last.
    const std::unique_ptr<platform::TextUnits> sentences_;
    platform::TextUnit sentence_{};
    /// The last boundary that startUpTo was asked for, and its answer.
    std::uint64_t boundary_ = 0;
    std::uint64_t start_ = 0;
};

/// Where spans end that begin at one place.
class LanguageSpanEnds {
public:
    /// Raises RangeException when `start` does not lie in the text.
    LanguageSpanEnds(std::u16string_view string, std::uint64_t start);

    /// What endLocationForDeterminingLanguageSegmentsForString:atLocation:startLocation: answers.
    [[nodiscard]] std::uint64_t endFor(std::uint64_t location);

private:
    void restart();
    void goToNextEnd();
    [[nodiscard]] bool isWhole(Range substring, Range enclosing);

    const std::uint64_t start_;
    const std::uint64_t textEnd_;
    const std::unique_ptr<platform::TextUnits> sentences_;
    bool isAtSentence_ = false;
    std::uint64_t pendingStart_ = 0;
    std::uint64_t pendingTextStart_ = 0;
    /// The last two ends; none lies between them.
    std::uint64_t previousEnd_ = 0;
    std::uint64_t end_ = 0;
};

/// Which languages spans end in that begin at one place.
class LanguageSpans {
public:
    /// Requires: `start` lies in the text.
    LanguageSpans(std::u16string_view string, std::uint64_t start, const AllowedLanguages& allowed,
                  LanguageTagging tagging);

    /// The language of the last segment of the span that ends at `end`; nothing when it has none.
    ///
    /// Requires: `end` is a sentence's end in the text from the start on, or the text's.
    [[nodiscard]] std::optional<std::string> languageAtEnd(std::uint64_t end);

private:
    void restart();
    [[nodiscard]] std::optional<std::string> languageOf(std::uint64_t from, std::uint64_t to) const;
    [[nodiscard]] std::optional<std::string> languageBeforeLastChunk();

    const std::uint64_t start_;
    /// The text from the start on; all other places count from there.
    const std::u16string_view text_;
    const AllowedLanguages& allowed_;
    const LanguageTagging tagging_;
    const std::unique_ptr<platform::TextUnits> sentences_;
    bool isAtSentence_ = false;
    LanguageChunks chunks_;
    /// How many chunks have been asked for their language, and the last one that they had.
    std::size_t settled_ = 0;
    std::optional<std::string> settledLanguage_;
    /// The last answer.
    std::uint64_t end_ = 0;
    std::optional<std::string> language_;
};

}  // namespace parlavox
