// Any text through every operation of the text utilities.
//
// The input begins with a location and a length, four bytes each, and one byte of options; the rest
// is the text, little-endian.

#include <cstring>
#include <string>

#include "Fuzz/Support/Input.h"
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
    segment(question);
    return 0;
}
