#include "Platform/Text/LanguageScores.h"

#include <algorithm>
#include <functional>
#include <string>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/Modules/LanguageModule.h"

namespace platform {
namespace {

// What the kinds of evidence are worth beside each other. Set on messages and manuals of programs,
// translated to 69 languages: Documentation/architecture.md tells how. The answers hardly change
// when one of these is a third more or less.
constexpr float kCld2Weight = 1;
constexpr float kWordWeight = 2.0F / 16;
constexpr float kGramWeight = 0.5F / 16;
constexpr float kForeignLetter = 6;

/// Languages without a name of the platform's are rarer than those that have one.
constexpr float kUnnamedPenalty = 2;

constexpr std::size_t kLongestGram = 5;

/// The words as the module wants them.
std::string cld2Text(const LanguageText& text) {
    std::string bytes = utf8FromUtf16(text.letters);
    std::replace(bytes.begin(), bytes.end(), '_', ' ');
    return bytes;
}

/// What the word speaks for when its hash begins with that of what stands before it.
std::span<const LanguageEvidence> evidenceForWord(const LanguageText& text,
                                                  const LanguageWord& word,
                                                  LanguageModelHash hash) {
    const auto letters = std::u16string_view(text.letters).substr(word.start, word.length);
    for (const char16_t letter : letters) {
        hash.add(letter);
    }
    if (word.isBeforeApostrophe) {
        hash.add(u'\'');
    }
    return kWordTable.find(hash.value());
}

}  // namespace

LanguageScores::LanguageScores(Script script)
    : script_(script), languages_(languagesInScript(script)) {
    std::transform(
        languages_.begin(), languages_.end(), scores_.begin(), [](const Language& language) {
            return static_cast<float>(language.lead) - (language.isNamed ? 0 : kUnnamedPenalty);
        });
}

void LanguageScores::add(std::span<const LanguageEvidence> evidence, float weight) {
    for (const auto& [language, amount] : evidence) {
        scores_[language] += weight * static_cast<float>(amount);
    }
}

void LanguageScores::addCld2(const LanguageText& text) {
    std::string bytes = cld2Text(text);
    const std::size_t length = bytes.size();
    bytes.append(LanguageFunctions::kPadding, '\0');
    std::array<Cld2Score, LanguageFunctions::kMostScores> found;
    const std::size_t count =
        moduleFunctions<LanguageFunctions>().score(script_, bytes.data(), length, found.data());
    // Some languages have several codes, which share what speaks for them.
    std::array<float, kMostLanguages> most{};
    for (const auto& [code, score] : std::span(found).first(count)) {
        const int place = placeOfLanguage(script_, code);
        if (place >= 0) {
            float& its = most[static_cast<std::size_t>(place)];
            its = std::max(its, static_cast<float>(score));
        }
    }
    std::transform(scores_.begin(), scores_.end(), most.begin(), scores_.begin(),
                   [](float score, float more) { return score + kCld2Weight * more; });
}

void LanguageScores::addWords(const LanguageText& text) {
    const LanguageModelHash start(script_);
    LanguageModelHash behindApostrophe = start;
    behindApostrophe.add(u'\'');
    for (const LanguageWord& word : text.words) {
        std::span<const LanguageEvidence> evidence;
        if (word.isBehindApostrophe) {
            evidence = evidenceForWord(text, word, behindApostrophe);
        }
        if (evidence.empty()) {
            evidence = evidenceForWord(text, word, start);
        }
        add(evidence, kWordWeight);
    }
}

void LanguageScores::addForeignLetters(const LanguageText& text) {
    for (const char16_t letter : text.letters) {
        const std::uint64_t those = letter < 0x80 ? ~0ULL : languagesWithLetter(script_, letter);
        if (those == ~0ULL) {
            continue;
        }
        for (std::size_t i = 0; i < languages_.size(); i++) {
            scores_[i] -= (those >> i & 1) != 0 ? 0 : kForeignLetter;
        }
    }
}

void LanguageScores::addGrams(const LanguageText& text) {
    const std::u16string_view letters = text.letters;
    for (std::size_t from = 0; from + 1 < letters.size(); from++) {
        LanguageModelHash hash(script_);
        const std::size_t end = std::min(from + kLongestGram, letters.size());
        for (std::size_t i = from; i < end; i++) {
            hash.add(letters[i]);
            add(kGramTable.find(hash.value()), kGramWeight);
            // An end of a word is the end of its n-grams.
            if (i > from && letters[i] == u'_') {
                break;
            }
        }
    }
}

const Language* LanguageScores::best() const {
    const auto end = scores_.begin() + static_cast<std::ptrdiff_t>(languages_.size());
    const auto best = std::max_element(scores_.begin(), end);
    return *best > 0 ? &languages_[static_cast<std::size_t>(best - scores_.begin())] : nullptr;
}

float LanguageScores::highest() const {
    return *std::max_element(scores_.begin(),
                             scores_.begin() + static_cast<std::ptrdiff_t>(languages_.size()));
}

float LanguageScores::lead() const {
    auto sorted = scores_;
    const auto end = sorted.begin() + static_cast<std::ptrdiff_t>(languages_.size());
    std::partial_sort(sorted.begin(), sorted.begin() + 2, end, std::greater<>());
    return sorted[0] - sorted[1];
}

}  // namespace platform
