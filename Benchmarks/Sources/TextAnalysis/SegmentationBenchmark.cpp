// A text cut into segments of one language each, beside the libraries that find sentences and tell
// languages.

#include <benchmark/benchmark.h>
#include <unicode/ubrk.h>

#include <cstdio>
// The library's header needs it before.
#include <cld2/public/compact_lang_det.h>
#include <cld2/public/encodings.h>

#include <memory>
#include <stdexcept>

#include "Benchmarks/Support/Benchmarks.h"
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

void identify(std::u16string_view chunk) {
    const std::string utf8 = platform::utf8FromUtf16(chunk);
    CLD2::CLDHints hints{nullptr, nullptr, CLD2::UNKNOWN_ENCODING, CLD2::UNKNOWN_LANGUAGE};
    CLD2::Language languages[3];
    int percents[3];
    double scores[3];
    int bytes = 0;
    int validBytes = 0;
    bool isReliable = false;
    benchmark::DoNotOptimize(CLD2::ExtDetectLanguageSummaryCheckUTF8(
        utf8.data(), static_cast<int>(utf8.size()), true, &hints, CLD2::kCLDFlagBestEffort,
        languages, percents, scores, nullptr, &bytes, &isReliable, &validBytes));
}

void walkAndIdentify(benchmark::State& state) {
    const auto chunks = parlavox::languageChunksOf(text());
    for (auto _ : state) {
        walkSentences();
        for (const parlavox::Range& chunk : chunks) {
            identify(std::u16string_view(text()).substr(chunk.location, chunk.length));
        }
    }
}

}  // namespace

void addSegmentationBenchmarks(Report& report) {
    constexpr double kTimesLibraries = 1.5;
    benchmark::RegisterBenchmark("Segments: 1 MB", segment)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Segments: ICU and CLD2", walkAndIdentify)
        ->Unit(benchmark::kMillisecond);
    report.begin("1 MB of text in segments of one language");
    report.compare({"beside sentences and languages alone", "Segments: 1 MB",
                    "Segments: ICU and CLD2", Target::atMost(kTimesLibraries)});
}

}  // namespace bench
