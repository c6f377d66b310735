// Runs all benchmarks and prints how their ratios stand to their targets.
//
// Takes the options of Google Benchmark. Ends with 1 when a target is not met.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "Benchmarks/Support/Benchmarks.h"
#include "Tests/Support/TemporaryDirectory.h"

namespace {

/// Keeps the medians; a measurement whose time was set by hand counts that time.
class Collector : public benchmark::ConsoleReporter {
public:
    explicit Collector(bench::Report& report) : ConsoleReporter(OO_Tabular), report_(report) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> medians;
        for (const Run& run : runs) {
            if (run.aggregate_name == "median") {
                medians.push_back(run);
            }
        }
        ConsoleReporter::ReportRuns(medians);
        for (const Run& run : medians) {
            const bool isByHand = run.run_name.time_type == "manual_time";
            report_.keep(run.run_name.function_name,
                         isByHand ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime());
        }
    }

private:
    bench::Report& report_;
};

/// The options that make the medians of a run comparable, before those of the command line.
std::vector<char*> withDefaults(int argc, char** argv) {
    // Taken in turn, so that a change of the machine's speed meets all alike.
    static std::string defaults[] = {"--benchmark_enable_random_interleaving=true",
                                     "--benchmark_repetitions=9", "--benchmark_min_time=0.05"};
    std::vector<char*> arguments{argv[0]};
    for (std::string& option : defaults) {
        arguments.push_back(option.data());
    }
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    return arguments;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<char*> arguments = withDefaults(argc, argv);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return 2;
    }
    const test::TemporaryDirectory spooled;
    const bench::Packages packages;
    bench::Report report;
    bench::addPackageBenchmarks(packages, report);
    bench::addArchiveBenchmarks(report);
    bench::addRtfBenchmarks(report);
    bench::addHtmlBenchmarks(report);
    bench::addZipBenchmarks(packages, report);
    bench::addZipWritingBenchmarks(packages, report);
    bench::addPlainTextBenchmarks(report);
    bench::addEnumerationBenchmarks(report);
    bench::addLanguageBenchmarks(report);
    bench::addNavigationBenchmarks(report);
    bench::addSegmentationBenchmarks(report);
    bench::addImportBenchmarks(report);
    bench::addPdfBenchmarks(report);
    bench::addProcessBenchmarks(packages, report);
    bench::measureMemory(packages, report);
    Collector collector(report);
    benchmark::RunSpecifiedBenchmarks(&collector);
    return report.print() ? 0 : 1;
}
