#include "Platform/Text/EncodingDetector.h"

#include <algorithm>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/AlphabetCost.h"
#include "Platform/Text/CodePageConverter.h"
#include "Platform/Text/DoubleByteCost.h"
#include "Platform/Text/Johab.h"
#include "Platform/Text/LanguageScores.h"
#include "Platform/Text/LanguageText.h"

namespace platform {
namespace {

struct Candidate {
    const char* name;
    float cost;  ///< how much rarer it is than the commonest, in nats
    std::optional<DoubleByteEncoding> doubleBytes = std::nullopt;
};

// Of encodings that read a text alike, the first is taken.
constexpr Candidate kCandidates[] = {
    {"windows-1252", 0},
    {"windows-1251", 1},
    {"windows-1250", 1.5F},
    {"windows-1253", 2},
    {"windows-1254", 2},
    {"windows-1255", 2},
    {"windows-1256", 2},
    {"windows-1257", 2.5F},
    {"windows-874", 2},
    {"windows-1258", 3},
    {"iso-8859-15", 2},
    {"iso-8859-2", 2.5F},
    {"iso-8859-7", 3},
    {"koi8-r", 2},
    {"koi8-u", 2.5F},
    {"iso-8859-5", 4},
    {"iso-8859-6", 4},
    {"iso-8859-13", 4},
    {"macintosh", 4},
    {"ibm-850", 4},
    {"ibm866", 4},
    {"ibm-852", 5},
    {"x-mac-cyrillic", 5},
    {"x-mac-centraleurroman", 5},
    {kUtf8Name, 0},
    {"gb18030", 1, DoubleByteEncoding::Gbk},
    {"windows-932", 1, DoubleByteEncoding::ShiftJis},
    {"windows-950", 1.5F, DoubleByteEncoding::Big5},
    {"windows-949", 2, DoubleByteEncoding::EucKr},
    {"euc-jp", 2, DoubleByteEncoding::EucJp},
    {kJohabName, 4, DoubleByteEncoding::Johab},
};

/// A candidate, the text that it makes of the sample, and what speaks against it.
struct Reading {
    const Candidate* candidate;
    std::u16string text;
    float cost;
};

constexpr std::size_t kMostSample = 4096;

// Its signs and Chinese characters are those of Johab.
constexpr char kOfJohabsSigns[] = "windows-949";

bool isBeyondAscii(char byte) {
    return static_cast<unsigned char>(byte) >= 0x80;
}

/// Whether a character ends before the byte in every encoding: no second byte is so small.
bool isBoundary(char byte) {
    return static_cast<unsigned char>(byte) <= 0x20;
}

/// Stretches around bytes beyond ASCII, the first ones. Each begins and ends between characters.
std::string sampleOf(std::string_view bytes) {
    constexpr std::ptrdiff_t kBefore = 128;
    constexpr std::ptrdiff_t kStretch = 1024;
    std::string sample;
    auto position = bytes.begin();
    while (sample.size() < kMostSample) {
        const auto high = std::find_if(position, bytes.end(), isBeyondAscii);
        if (high == bytes.end()) {
            break;
        }
        const auto from = high - std::min(high - position, kBefore);
        const auto least = high + std::min(bytes.end() - high, kStretch);
        const auto end = std::find_if(least, bytes.end(), isBoundary);
        const auto room = static_cast<std::ptrdiff_t>(kMostSample - sample.size());
        sample.append(from, from + std::min(end - from, room));
        position = end;
    }
    return sample;
}

float evidenceIn(std::u16string_view text, Script script) {
    const LanguageText words = wordsInScript(text, script);
    if (words.words.empty()) {
        return 0;
    }
    LanguageScores scores(script);
    scores.addCld2(words);
    scores.addWords(words);
    scores.addForeignLetters(words);
    scores.addGrams(words);
    return scores.highest();
}

/// Whether a word is of several letters, all of one script, with common signs beside them at most.
bool isSoundWord(std::u16string_view word) {
    Script its = Script::None;
    std::size_t letters = 0;
    bool isBehindSign = false;
    const bool isSound = std::all_of(word.begin(), word.end(), [&](char16_t unit) {
        const Script script = scriptOf(unit);
        if (script == Script::None) {
            isBehindSign = unit >= 0x80 && !isSignOfWords(unit) && letters > 0;
            return unit < 0x80 || isCommonSign(unit) || isSignOfWords(unit);
        }
        its = letters == 0 ? script : its;
        letters++;
        return !isBehindSign && (script == its || script == Script::Mark);
    });
    return isSound && letters > 1;
}

/// The words that speak for a language, if any do. Single letters and pieces of words that signs
/// have torn would speak for some, too.
std::u16string soundWords(std::u16string_view text) {
    std::u16string words;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end =
            std::min(text.find_first_of(u" \t\r\n\u00A0\u2026", start), text.size());
        const std::u16string_view word = text.substr(start, end - start);
        if (isSoundWord(word)) {
            words.append(word).push_back(u' ');
        }
        start = end + 1;
    }
    return words;
}

bool isOfOneLanguage(char16_t unit) {
    const Script script = scriptOf(unit);
    return static_cast<std::size_t>(script) >= kSharedScriptCount && script < Script::Unnamed;
}

/// How much the words speak for languages.
float languageEvidence(std::u16string_view text) {
    // What speaks for a language comes to about so much in a text that is read right.
    constexpr float kEvidenceOfLetter = 1;
    const auto owned = std::count_if(text.begin(), text.end(), isOfOneLanguage);
    float evidence = kEvidenceOfLetter * static_cast<float>(owned);
    const std::u16string words = soundWords(text);
    for (const Script script : {Script::Latin, Script::Cyrillic, Script::Arabic, Script::Hebrew}) {
        evidence += evidenceIn(words, script);
    }
    return evidence;
}

/// What speaks against the sample being a candidate's that reads it as `text`; nothing when it is
/// none.
std::optional<float> costOf(const Candidate& candidate, std::string_view sample,
                            std::u16string_view text) {
    const auto damages =
        static_cast<float>(std::count(text.begin(), text.end(), kReplacementCharacter));
    if (candidate.doubleBytes) {
        constexpr float kFreePlace = 5;
        return candidate.cost + doubleByteCost(sample, *candidate.doubleBytes) +
               kFreePlace * damages;
    }
    const float cost = candidate.cost + alphabetCost(text);
    if (candidate.name != kUtf8Name) {
        return cost;
    }
    // Damage happens to a text; a character that no text has does not.
    constexpr float kRelief = 4;
    const bool hasSoundForm = std::any_of(text.begin(), text.end(), [](char16_t unit) {
        return unit >= 0x80 && unit != kReplacementCharacter;
    });
    return hasSoundForm ? std::optional(cost - kRelief * damages) : std::nullopt;
}

/// What the candidates make of the sample; of those that read it alike the likeliest.
std::vector<Reading> readingsOf(std::string_view sample) {
    std::vector<Reading> readings;
    for (const Candidate& candidate : kCandidates) {
        std::u16string text = textInEncoding(sample, candidate.name);
        const auto cost = costOf(candidate, sample, text);
        if (text.empty() || !cost) {
            continue;
        }
        const auto same =
            std::find_if(readings.begin(), readings.end(),
                         [&](const Reading& reading) { return reading.text == text; });
        if (same == readings.end()) {
            readings.push_back({&candidate, std::move(text), *cost});
        } else if (*cost < same->cost) {
            *same = {&candidate, std::move(text), *cost};
        }
    }
    return readings;
}

bool isLikelier(const Reading& first, const Reading& second) {
    return std::tie(first.cost, first.candidate) < std::tie(second.cost, second.candidate);
}

}  // namespace

const char* likeliestEncoding(std::string_view bytes) {
    // Looking at the languages of a text takes its time, and the right one is always among these.
    constexpr std::ptrdiff_t kMostWithLanguage = 8;
    std::vector<Reading> readings = readingsOf(sampleOf(bytes));
    if (readings.empty()) {
        return kCandidates[0].name;
    }
    const auto count = std::min(std::ssize(readings), kMostWithLanguage);
    std::partial_sort(readings.begin(), readings.begin() + count, readings.end(), isLikelier);
    readings.resize(static_cast<std::size_t>(count));
    for (Reading& reading : readings) {
        reading.cost -= languageEvidence(reading.text);
    }
    return std::min_element(readings.begin(), readings.end(), isLikelier)->candidate->name;
}

std::u16string textInEncoding(std::string_view bytes, const char* name) {
    const bool isJohab = name == kJohabName;
    const auto converter = name == kUtf8Name
                               ? nullptr
                               : CodePageConverter::converterNamed(isJohab ? kOfJohabsSigns : name);
    if (converter == nullptr) {
        return utf16FromUtf8Lossy(bytes);
    }
    std::u16string text;
    text.reserve(bytes.size());
    if (isJohab) {
        appendJohab(text, bytes, *converter);
    } else {
        converter->append(text, bytes);
    }
    return text;
}

}  // namespace platform
