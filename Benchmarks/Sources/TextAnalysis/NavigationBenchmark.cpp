// Steps from a cursor to the unit at it, behind it and before it.

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <span>
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

constexpr Operation kStepsInOneParagraph[] = {
    Utils::rangeOfCurrentWordInString,  Utils::rangeOfNextWordInString,
    Utils::rangeOfPreviousWordInString, Utils::rangeOfCurrentSentenceInString,
    Utils::rangeOfNextSentenceInString, Utils::rangeOfPreviousSentenceInString,
};

/// Each step once for each of a thousand cursors all over the text.
constexpr Operation kSteps[] = {
    Utils::rangeOfCurrentWordInString,       Utils::rangeOfNextWordInString,
    Utils::rangeOfPreviousWordInString,      Utils::rangeOfCurrentSentenceInString,
    Utils::rangeOfNextSentenceInString,      Utils::rangeOfPreviousSentenceInString,
    Utils::rangeOfCurrentParagraphInString,  Utils::rangeOfNextParagraphInString,
    Utils::rangeOfPreviousParagraphInString,
};

std::vector<std::uint64_t> cursorsIn(const std::u16string& text) {
    std::minstd_rand random;
    std::vector<std::uint64_t> cursors(1000);
    for (std::uint64_t& cursor : cursors) {
        cursor = std::uniform_int_distribution<std::uint64_t>(0, text.size() - 1)(random);
    }
    return cursors;
}

void step(benchmark::State& state, const std::u16string& text,
          std::span<const Operation> operations) {
    const std::vector<std::uint64_t> cursors = cursorsIn(text);
    for (auto _ : state) {
        for (const std::uint64_t cursor : cursors) {
            for (const Operation operation : operations) {
                benchmark::DoNotOptimize(operation(text, {cursor, 0}));
            }
        }
    }
}

void askForLanguages(benchmark::State& state, const std::u16string& text) {
    const std::vector<std::uint64_t> cursors = cursorsIn(text);
    for (auto _ : state) {
        for (const std::uint64_t cursor : cursors) {
            benchmark::DoNotOptimize(Utils::languageCodeForString(text, cursor, std::nullopt));
        }
    }
}

template <class Function>
std::string add(const std::string& name, std::uint64_t units, Paragraphs paragraphs,
                Function function) {
    const auto text = std::make_shared<const std::u16string>(sentencesOf(units, paragraphs));
    benchmark::RegisterBenchmark(name.c_str(), [text, function](benchmark::State& state) {
        function(state, *text);
    })->Unit(benchmark::kMillisecond);
    return name;
}

}  // namespace

void addNavigationBenchmarks(Report& report) {
    // 9,000 steps of at most 5 microseconds each.
    constexpr double kMilliseconds = 45;
    constexpr double kWhateverTheLength = 1.5;
    const auto steps = [](benchmark::State& state, const std::u16string& text) {
        step(state, text, kSteps);
    };
    const auto stepsInOne = [](benchmark::State& state, const std::u16string& text) {
        step(state, text, kStepsInOneParagraph);
    };
    const auto compare = [&](const std::string& what, Paragraphs paragraphs, auto function) {
        const std::string inShort = add(what + ": 10 kB", kShort, paragraphs, function);
        const std::string inLong = add(what + ": 20 MB", kLong, paragraphs, function);
        report.compare({what + ", 20 MB beside 10 kB of text", inLong, inShort,
                        Target::atMost(kWhateverTheLength)});
        return inLong;
    };
    report.begin("9,000 steps to words, sentences and paragraphs");
    const std::string inLong = compare("steps", Paragraphs::Many, steps);
    report.compare({"in 20 MB of text", inLong, inLong, Target::below(kMilliseconds)});
    compare("6,000 steps in one paragraph", Paragraphs::One, stepsInOne);
    compare("1,000 languages at a place", Paragraphs::Many, askForLanguages);
    compare("1,000 languages at a place in one paragraph", Paragraphs::One, askForLanguages);
}

}  // namespace bench
