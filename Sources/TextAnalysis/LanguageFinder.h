// Finds the languages at many positions of one text.
//
// An object belongs to one thread at a time; its text must stay as it is while it lives.

#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Platform/Text/LanguageTagger.h"
#include "Sources/TextAnalysis/LanguageSpans.h"

namespace parlavox {

/// Answers what TextAnalyzeUtils::languageCodeForString answers, and remembers what it has found
/// out: positions in ascending order cost together about one walk over the spans that they ask for,
/// also where no language is found.
class LanguageFinder {
public:
    explicit LanguageFinder(
        std::u16string_view string, AllowedLanguages allowed = std::nullopt,
        LanguageTagging tagging = platform::LanguageTagger::dominantLanguageForString);

    /// The language at a position; see languageCodeForString:atLocation:allowedLanguageCodes:.
    [[nodiscard]] std::optional<std::string> languageCodeAtLocation(std::uint64_t location);

private:
    using LanguageByPlace = std::unordered_map<std::uint64_t, std::optional<std::string>>;

    /// The spans that begin at one place.
    struct Spans {
        std::uint64_t start = 0;
        std::unique_ptr<LanguageSpanEnds> ends;
        std::unique_ptr<LanguageSpans> languages;

        [[nodiscard]] bool isFrom(std::uint64_t place) const { return ends && start == place; }
    };

    [[nodiscard]] Spans& spansFrom(std::uint64_t start);
    [[nodiscard]] std::optional<std::string> languageBefore(std::uint64_t end);
    [[nodiscard]] std::optional<std::string> languageBehind(std::uint64_t start);
    [[nodiscard]] std::optional<std::string> firstLanguageIn(std::u16string_view span) const;

    const std::u16string_view string_;
    const AllowedLanguages allowed_;
    const LanguageTagging tagging_;
    /// Made when a position is first asked for.
    std::optional<LanguageSpanStarts> starts_;
    /// The spans with the last position's, and those before them.
    std::array<Spans, 2> spans_;
    /// What was found from a span's start backwards, and from its end on.
    LanguageByPlace before_;
    LanguageByPlace behind_;
};

}  // namespace parlavox
