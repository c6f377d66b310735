#include "Platform/Text/LanguageTagger.h"

#include <algorithm>
#include <array>

#include "Platform/Text/LanguageScores.h"
#include "Platform/Text/LanguageText.h"
#include "Platform/Text/Scripts.h"

namespace platform {
namespace {

constexpr const char* kUndetermined = "und";

/// With so many nats of lead the n-grams, which are slower, change nothing any more.
constexpr float kSureLead = 10;

constexpr bool isEastAsian(Script script) {
    return script >= Script::Han && script <= Script::Hangul;
}

/// What a letter counts; one of a Latin word in small letters counts 2. Other scripts' letters
/// count more, because some hold more, and because names and words in Latin letters stand in texts
/// of all scripts, but seldom the other way round.
constexpr std::uint32_t weightOf(Script script) {
    switch (script) {
        case Script::Han:
        case Script::Hangul:
            return 6;
        case Script::Kana:
        case Script::Bopomofo:
        case Script::Ethiopic:
            return 4;
        default:
            return 3;
    }
}

/// The script that most of a text is written in. Those of East Asia are mixed and count as one,
/// Han.
Script mainScript(const LetterCounts& counts) {
    std::array<std::uint32_t, kScriptCount> weights{};
    for (std::size_t i = 0; i < static_cast<std::size_t>(Script::Mark); i++) {
        const auto script = static_cast<Script>(i);
        const Script group = isEastAsian(script) ? Script::Han : script;
        weights[static_cast<std::size_t>(group)] += weightOf(script) * counts.letters[i];
    }
    // Words that begin with a capital may be names.
    weights[static_cast<std::size_t>(Script::Latin)] =
        2 * counts.of(Script::Latin) - counts.latinInNames;
    const auto* const most = std::max_element(weights.begin(), weights.end());
    return *most == 0 ? Script::None : static_cast<Script>(most - weights.begin());
}

const char* eastAsianLanguage(const LetterCounts& counts) {
    const std::uint32_t han = counts.of(Script::Han);
    const std::uint32_t kana = counts.of(Script::Kana);
    if (counts.of(Script::Hangul) > std::max(han / 3, kana)) {
        return "ko";
    }
    const std::uint32_t traditional = counts.of(HanForm::Traditional);
    const std::uint32_t simplified = counts.of(HanForm::Simplified);
    // Japanese has forms of its own, and takes the others from both Chinese scripts, which do not
    // mix. A Chinese text may hold a few kana in names.
    const std::uint32_t japanese =
        5 * kana + 8 * counts.of(HanForm::Japanese) + 4 * std::min(traditional, simplified);
    if (japanese >= std::max(han, 1U)) {
        return "ja";
    }
    return traditional + counts.of(Script::Bopomofo) > simplified ? "zh-Hant" : "zh-Hans";
}

const char* ownerOf(Script script) {
    switch (script) {
        case Script::Greek:
            return "el";
        case Script::Armenian:
            return "hy";
        case Script::Georgian:
            return "ka";
        case Script::Thai:
            return "th";
        case Script::Lao:
            return "lo";
        case Script::Khmer:
            return "km";
        case Script::Myanmar:
            return "my";
        case Script::Tibetan:
            return "bo";
        case Script::Gurmukhi:
            return "pa";
        case Script::Gujarati:
            return "gu";
        case Script::Oriya:
            return "or";
        case Script::Tamil:
            return "ta";
        case Script::Telugu:
            return "te";
        case Script::Kannada:
            return "kn";
        case Script::Malayalam:
            return "ml";
        case Script::Sinhala:
            return "si";
        case Script::Cherokee:
            return "chr";
        case Script::Mongolian:
            return "mn";
        default:
            return kUndetermined;
    }
}

/// Of languages that share a script.
std::string likeliestLanguage(std::u16string_view string, Script script) {
    const LanguageText text = wordsInScript(string, script);
    constexpr std::size_t kOneLetter = 3;  // with the marks of its word's ends
    if (text.letters.size() <= kOneLetter) {
        return kUndetermined;
    }
    LanguageScores scores(script);
    scores.addCld2(text);
    scores.addWords(text);
    scores.addForeignLetters(text);
    if (scores.lead() < kSureLead) {
        scores.addGrams(text);
    }
    const Language* const best = scores.best();
    return best != nullptr && best->isNamed ? std::string(best->code) : kUndetermined;
}

}  // namespace

std::string LanguageTagger::dominantLanguageForString(std::u16string_view string) {
    const LetterCounts counts = countLetters(string);
    const Script script = mainScript(counts);
    if (script == Script::Han) {
        return eastAsianLanguage(counts);
    }
    return static_cast<std::size_t>(script) < kSharedScriptCount ? likeliestLanguage(string, script)
                                                                 : ownerOf(script);
}

}  // namespace platform
