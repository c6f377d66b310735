// Any text through every operation of the text utilities.
//
// The input begins with a location and a length, four bytes each, and one byte of options; the rest
// is the text, little-endian.

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "Fuzz/Support/Input.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace {

using parlavox::NotFoundRange;
using parlavox::Range;
using Utils = parlavox::TextAnalyzeUtils;

struct Question {
    Range range;
    unsigned options = 0;
    bool findNext = false;
    std::u16string text;
};

Question questionIn(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::size_t kHead = 9;
    Question question;
    if (size < kHead) {
        return question;
    }
    std::uint32_t numbers[2];
    std::memcpy(numbers, bytes, sizeof numbers);
    question.text.resize((size - kHead) / 2);
    std::memcpy(question.text.data(), bytes + kHead, question.text.size() * 2);
    // Locations mostly near the text, lengths up to the ends of 64 bits.
    question.range.location = numbers[0] % (question.text.size() + 3);
    question.range.length = (numbers[1] & 1U) != 0 ? numbers[1] % (question.text.size() + 3)
                                                   : ~std::uint64_t{0} - numbers[1];
    question.options = (bytes[8] & 7U) | ((bytes[8] & 8U) != 0 ? 0x100U : 0U);
    question.findNext = (bytes[8] & 16U) != 0;
    return question;
}

void navigate(const Question& question) {
    const auto expectInside = [&](Range found) {
        fuzz::expect(
            found == NotFoundRange || (found.length > 0 && found.liesWithin(question.text.size())),
            "a unit lies in the text");
    };
    const std::u16string_view text = question.text;
    expectInside(Utils::rangeInString(text, question.range, question.options, question.findNext));
    for (const auto operation :
         {Utils::rangeOfCurrentWordInString, Utils::rangeOfNextWordInString,
          Utils::rangeOfPreviousWordInString, Utils::rangeOfCurrentSentenceInString,
          Utils::rangeOfNextSentenceInString, Utils::rangeOfPreviousSentenceInString,
          Utils::rangeOfCurrentParagraphInString, Utils::rangeOfNextParagraphInString,
          Utils::rangeOfPreviousParagraphInString}) {
        expectInside(operation(text, question.range));
    }
}

/// The units of a part of the text, in both directions.
void enumerate(const Question& question) {
    const std::u16string_view text = question.text;
    const Range part{std::min<std::uint64_t>(question.range.location, text.size()),
                     question.range.length % (text.size() + 1)};
    const Range inside{part.location, std::min(part.length, text.size() - part.location)};
    for (const auto kind : {platform::TextUnitKind::Paragraph, platform::TextUnitKind::Word,
                            platform::TextUnitKind::Sentence}) {
        std::vector<Range> forwards;
        platform::enumerateSubstringsInRange(
            text, inside, static_cast<unsigned>(kind),
            [&](const platform::EnumeratedSubstring& unit, bool&) {
                const std::uint64_t end =
                    forwards.empty() ? inside.location : forwards.back().end();
                fuzz::expect(unit.enclosingRange.location == end, "units follow one another");
                forwards.push_back(unit.enclosingRange);
            });
        fuzz::expect(forwards.empty() || forwards.back().end() == inside.end(),
                     "units reach to the end");
        platform::enumerateSubstringsInRange(
            text, inside, static_cast<unsigned>(kind) | platform::kEnumerationReverse,
            [&](const platform::EnumeratedSubstring& unit, bool&) {
                fuzz::expect(!forwards.empty() && forwards.back() == unit.enclosingRange,
                             "both ways give the same units");
                forwards.pop_back();
            });
        fuzz::expect(forwards.empty(), "both ways give all units");
    }
}

void askForSpans(const Question& question) {
    const std::u16string_view text = question.text;
    fuzz::allowExceptions([&] {
        const std::uint64_t location = question.range.location;
        const auto start =
            Utils::startLocationForDeterminingLanguageSegmentsForString(text, location);
        fuzz::expect(start <= text.size() && (start == 0 || start <= location),
                     "a span begins before its place");
        const auto end =
            Utils::endLocationForDeterminingLanguageSegmentsForString(text, location, start);
        fuzz::expect(end <= text.size() && (end > start || text.size() == start),
                     "a span ends in the text");
    });
    const parlavox::AllowedLanguages allowed{{"de", "en"}};
    const auto code = Utils::languageCodeForString(text, question.range.location, allowed);
    fuzz::expect(!code || *code == "de" || *code == "en", "only allowed languages are found");
    const auto empty = Utils::isStringEmpty(text);
    fuzz::expect(!empty || !Utils::languageSegmentsForString(text, std::nullopt),
                 "an empty text has no language");
}

void segment(const Question& question) {
    const auto segments = Utils::languageSegmentsForString(question.text, std::nullopt);
    std::uint64_t position = 0;
    const std::string* before = nullptr;
    for (const auto& one :
         segments.value_or(std::vector<std::shared_ptr<parlavox::LanguageSegment>>())) {
        fuzz::expect(one->range.location == position, "segments follow one another");
        position = one->range.end();
        fuzz::expect(one->languageCode && *one->languageCode != "und", "each has a language");
        fuzz::expect(before == nullptr || *before != *one->languageCode,
                     "neighbours differ in language");
        before = &*one->languageCode;
    }
    fuzz::expect(!segments || position == question.text.size(), "segments tile the text");
    const auto code =
        Utils::languageCodeForString(question.text, question.range.location, std::nullopt);
    fuzz::expect(!code || *code != "und", "a place has a language or none");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Question question = questionIn(bytes, size);
    navigate(question);
    enumerate(question);
    askForSpans(question);
    segment(question);
    return 0;
}
