// A text cut into segments of one language each, beside the libraries that find sentences and tell
// languages.

#include <benchmark/benchmark.h>
#include <unicode/ubrk.h>

#include <memory>
#include <stdexcept>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Cld2.h"
#include "Benchmarks/Support/Sentences.h"
#include "Platform/Foundation/Unicode.h"
#include "Sources/TextAnalysis/LanguageChunks.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace bench {
namespace {

using parlavox::TextAnalyzeUtils;

/// English sentences with a few in German between them.
const std::u16string& text() {
    static const std::u16string mixed = [] {
        std::u16string all;
        while (all.size() < 1'000'000) {
            all += sentencesOf(2'000);
            all +=
                u"Jeden Abend stieg der W\u00E4rter zweihundert Stufen hinauf und z\u00FCndete die "
                u"Lampe an. Niemand au\u00DFer ihm wusste, wie sp\u00E4t es geworden war. ";
        }
        return all;
    }();
    return mixed;
}

void segment(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(TextAnalyzeUtils::languageSegmentsForString(text(), std::nullopt));
    }
}

void walkSentences() {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UBreakIterator, decltype(&ubrk_close)> iterator(
        ubrk_open(UBRK_SENTENCE, "", text().data(), static_cast<std::int32_t>(text().size()),
                  &status),
        ubrk_close);
    if (U_FAILURE(status)) {
        throw std::runtime_error("no iterator");
    }
    while (ubrk_next(iterator.get()) != UBRK_DONE) {
    }
}

void walkAndIdentify(benchmark::State& state) {
    const auto chunks = parlavox::languageChunksOf(text());
    for (auto _ : state) {
        walkSentences();
        for (const parlavox::Range& chunk : chunks) {
            const std::u16string_view part =
                std::u16string_view(text()).substr(chunk.location, chunk.length);
            benchmark::DoNotOptimize(cld2Language(platform::utf8FromUtf16(part)));
        }
    }
}

}  // namespace

void addSegmentationBenchmarks(Report& report) {
    constexpr double kTimesLibraries = 1.5;
    // The library alone comes first.
    static_cast<void>(cld2Language("the"));
    benchmark::RegisterBenchmark("Segments: 1 MB", segment)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Segments: ICU and CLD2", walkAndIdentify)
        ->Unit(benchmark::kMillisecond);
    report.begin("1 MB of text in segments of one language");
    report.compare({"beside sentences and languages alone", "Segments: 1 MB",
                    "Segments: ICU and CLD2", Target::atMost(kTimesLibraries)});
}

}  // namespace bench
