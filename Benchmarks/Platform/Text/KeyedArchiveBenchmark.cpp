// Keyed archives in memory: decoding a text with all its runs, and letting go of it.

#include <benchmark/benchmark.h>

#include <string>

#include "Benchmarks/Support/Benchmarks.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Text/AttributedStringCoding.h"

namespace bench {
namespace {

void decode(benchmark::State& state, const platform::Data& archive) {
    for (auto _ : state) {
        const auto unarchiver = platform::KeyedUnarchiver::initForReadingWithData(archive);
        unarchiver->addClasses(platform::attributedTextClasses());
        const platform::Value root = unarchiver->decodeObject();
        unarchiver->finishDecoding();
        benchmark::DoNotOptimize(root.object().get());
    }
}

std::string add(const Shape& shape) {
    const std::string name = "Archive: " + shape.name();
    benchmark::RegisterBenchmark(name.c_str(), decode, archiveOf(shape))
        ->Unit(benchmark::kMillisecond);
    return name;
}

}  // namespace

void addArchiveBenchmarks(Report& report) {
    constexpr double kLinear = 2.1;
    constexpr std::uint64_t kUnits = 500'000;
    constexpr std::uint64_t kRuns = 50'000;
    report.begin("Keyed archives alone, twice the runs");
    const auto compare = [&](const Shape& half, const Shape& whole) {
        const std::string name = whole.name();
        const std::string halfName = add(half);
        report.compare({name, add(whole), halfName, Target::atMost(kLinear)});
    };
    compare({kUnits, kRuns, 64}, {2 * kUnits, 2 * kRuns, 64});
    compare({kUnits, kRuns, kRuns}, {2 * kUnits, 2 * kRuns, 2 * kRuns});
    compare({kUnits, kRuns, kRuns, OwnValue::String},
            {2 * kUnits, 2 * kRuns, 2 * kRuns, OwnValue::String});
}

}  // namespace bench
