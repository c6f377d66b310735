// Steps from a cursor to the unit at it, behind it and before it.

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Sentences.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace bench {
namespace {

using parlavox::Range;
using Utils = parlavox::TextAnalyzeUtils;
using Operation = Range (*)(std::u16string_view, Range);

constexpr std::uint64_t kShort = 10'000;
constexpr std::uint64_t kLong = 20'000'000;

/// Each step once for each of a thousand cursors all over the text.
constexpr Operation kSteps[] = {
    Utils::rangeOfCurrentWordInString,       Utils::rangeOfNextWordInString,
    Utils::rangeOfPreviousWordInString,      Utils::rangeOfCurrentSentenceInString,
    Utils::rangeOfNextSentenceInString,      Utils::rangeOfPreviousSentenceInString,
    Utils::rangeOfCurrentParagraphInString,  Utils::rangeOfNextParagraphInString,
    Utils::rangeOfPreviousParagraphInString,
};

void step(benchmark::State& state, const std::u16string& text) {
    std::minstd_rand random;
    std::vector<std::uint64_t> cursors(1000);
    for (std::uint64_t& cursor : cursors) {
        cursor = std::uniform_int_distribution<std::uint64_t>(0, text.size() - 1)(random);
    }
    for (auto _ : state) {
        for (const std::uint64_t cursor : cursors) {
            for (const Operation operation : kSteps) {
                benchmark::DoNotOptimize(operation(text, {cursor, 0}));
            }
        }
    }
}

std::string add(const std::string& name, std::uint64_t units) {
    const auto text = std::make_shared<const std::u16string>(sentencesOf(units));
    benchmark::RegisterBenchmark(name.c_str(), [text](benchmark::State& state) {
        step(state, *text);
    })->Unit(benchmark::kMillisecond);
    return name;
}

}  // namespace

void addNavigationBenchmarks(Report& report) {
    // 9,000 steps of at most 5 microseconds each.
    constexpr double kMilliseconds = 45;
    constexpr double kWhateverTheLength = 1.5;
    report.begin("9,000 steps to words, sentences and paragraphs");
    const std::string inShort = add("Steps: 10 kB", kShort);
    const std::string inLong = add("Steps: 20 MB", kLong);
    report.compare({"in 20 MB of text", inLong, inLong, Target::below(kMilliseconds)});
    report.compare({"in 20 MB, beside 10 kB", inLong, inShort, Target::atMost(kWhateverTheLength)});
}

}  // namespace bench
