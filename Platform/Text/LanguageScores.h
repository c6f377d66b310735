// How much a text speaks for each of the languages that share its script.
//
// Evidence comes from four sides, each weak alone: CLD2's tables of letters in a row, the commonest
// words of languages, letters that a language does not write, and libexttextcat's n-grams. Values;
// any thread at once.

#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "Platform/Text/LanguageModel.h"
#include "Platform/Text/LanguageText.h"

namespace platform {

/// Collects evidence, in nats, for the languages of one script.
class LanguageScores {
public:
    explicit LanguageScores(Script script);

    void addCld2(const LanguageText& text);
    void addWords(const LanguageText& text);
    void addForeignLetters(const LanguageText& text);
    void addGrams(const LanguageText& text);

    /// The language that most speaks for; null when nothing does for any.
    [[nodiscard]] const Language* best() const;

    /// How much speaks for the likeliest language; negative when more speaks against it.
    [[nodiscard]] float highest() const;

    /// How much more speaks for the best language than for the next.
    [[nodiscard]] float lead() const;

private:
    void add(std::span<const LanguageEvidence> evidence, float weight);

    Script script_;
    std::span<const Language> languages_;
    std::array<float, kMostLanguages> scores_{};
};

}  // namespace platform
