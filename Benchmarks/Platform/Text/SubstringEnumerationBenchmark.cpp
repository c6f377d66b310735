// Words and sentences one after the other, beside the library that finds their boundaries.

#include "Platform/Text/SubstringEnumeration.h"

#include <benchmark/benchmark.h>
#include <unicode/ubrk.h>

#include <memory>
#include <stdexcept>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Sentences.h"

namespace bench {
namespace {

constexpr std::uint64_t kUnits = 1'000'000;

const std::u16string& text() {
    static const std::u16string sentences = sentencesOf(kUnits);
    return sentences;
}

void enumerate(benchmark::State& state, platform::TextUnitKind kind, unsigned flags) {
    for (auto _ : state) {
        std::uint64_t sum = 0;
        platform::enumerateSubstringsInRange(
            text(), {0, text().size()}, static_cast<unsigned>(kind) | flags,
            [&](const platform::EnumeratedSubstring& unit, bool&) {
                sum += unit.substringRange.length + unit.enclosingRange.length;
            });
        benchmark::DoNotOptimize(sum);
    }
}

void walkBoundaries(benchmark::State& state, UBreakIteratorType type) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UBreakIterator, decltype(&ubrk_close)> iterator(
        ubrk_open(type, "", text().data(), static_cast<std::int32_t>(text().size()), &status),
        ubrk_close);
    if (U_FAILURE(status)) {
        throw std::runtime_error("no iterator");
    }
    for (auto _ : state) {
        std::int64_t sum = 0;
        ubrk_first(iterator.get());
        for (auto end = ubrk_next(iterator.get()); end != UBRK_DONE;
             end = ubrk_next(iterator.get())) {
            sum += end + ubrk_getRuleStatus(iterator.get());
        }
        benchmark::DoNotOptimize(sum);
    }
}

template <class Function, class... Arguments>
std::string add(const std::string& name, Function function, Arguments... arguments) {
    benchmark::RegisterBenchmark(name.c_str(), function, arguments...)
        ->Unit(benchmark::kMillisecond);
    return name;
}

}  // namespace

void addEnumerationBenchmarks(Report& report) {
    using platform::TextUnitKind;
    constexpr double kTimesLibrary = 1.3;
    report.begin("Units of 1 MB of text, beside the boundaries alone");
    const std::string words = add("ICU: words", walkBoundaries, UBRK_WORD);
    const std::string sentences = add("ICU: sentences", walkBoundaries, UBRK_SENTENCE);
    report.compare({"words", add("Units: words", enumerate, TextUnitKind::Word, 0U), words,
                    Target::atMost(kTimesLibrary)});
    report.compare({"words in reverse",
                    add("Units: words in reverse", enumerate, TextUnitKind::Word,
                        static_cast<unsigned>(platform::kEnumerationReverse)),
                    words, Target::none()});
    report.compare({"sentences", add("Units: sentences", enumerate, TextUnitKind::Sentence, 0U),
                    sentences, Target::atMost(kTimesLibrary)});
    report.compare({"sentences in reverse",
                    add("Units: sentences in reverse", enumerate, TextUnitKind::Sentence,
                        static_cast<unsigned>(platform::kEnumerationReverse)),
                    sentences, Target::none()});
    report.compare({"paragraphs", add("Units: paragraphs", enumerate, TextUnitKind::Paragraph, 0U),
                    sentences, Target::none()});
}

}  // namespace bench
