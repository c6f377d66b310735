// The main job as a whole process, from its start to its end: what a service pays that starts a
// program for one file.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/PdfBook.h"
#include "Benchmarks/Support/Process.h"
#include "Benchmarks/Support/RtfDocuments.h"

namespace bench {
namespace {

using Command = std::vector<std::string>;

std::string add(const std::string& name, const Command& command) {
    benchmark::RegisterBenchmark(name.c_str(),
                                 [command](benchmark::State& state) {
                                     for (auto _ : state) {
                                         state.SetIterationTime(runProcess(command).seconds);
                                     }
                                 })
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
    return name;
}

void checkThatOutputsAgree(const std::vector<Command>& commands) {
    const ProcessRun first = runProcess(commands.front());
    for (const Command& command : commands) {
        const ProcessRun run = runProcess(command);
        if (run.status != 0 || run.output.empty() || run.output != first.output) {
            std::fprintf(stderr, "%s: the output differs\n", command.front().c_str());
            std::abort();
        }
    }
}

void addRtfProcess(const Packages& packages, Report& report) {
    constexpr double kTimes = 10;
    constexpr std::size_t kSize = 5'000'000;
    const std::string path = packages.folder() + "/process.rtf";
    std::ofstream(path, std::ios::binary) << rtfDocument(kRtfShapes[0], kSize).view();
    const std::string ours = add("Process: pvindex text of RTF", {PV_BENCH_PVINDEX, "text", path});
    report.begin("A whole process for 5 MB of RTF");
    report.compare({"pvindex text, beside unrtf", ours,
                    add("Process: unrtf", {PV_BENCH_UNRTF, "--text", path}),
                    Target::atLeast(kTimes)});
}

void addPdfProcess(const Packages& packages, Report& report) {
    constexpr double kTimes = 1.35;
    const std::string path = packages.folder() + "/process.pdf";
    std::ofstream(path, std::ios::binary) << pdfBook();
    const std::string ours = add("Process: pvindex text of PDF", {PV_BENCH_PVINDEX, "text", path});
    report.begin("A whole process for a PDF file of 300 pages");
    report.compare({"pvindex text, beside pdftotext", ours,
                    add("Process: pdftotext", {PV_BENCH_PDFTOTEXT, path, "-"}),
                    Target::atMost(kTimes)});
}

}  // namespace

void addProcessBenchmarks(const Packages& packages, Report& report) {
    constexpr double kMilliseconds = 1;
    constexpr double kTimesPython = 12;
    const std::string path = packages.pathOf({10'000, 100, 10});
    const Command pvindex{PV_BENCH_PVINDEX, "text", path};
    const Command floor{PV_BENCH_FLOOR, path};
    const Command python{PV_BENCH_PYTHON, PV_BENCH_SCRIPT, path};
    checkThatOutputsAgree({pvindex, floor, python});
    report.begin("A whole process for one document of 10 kB");
    const std::string ours = add("Process: pvindex text", pvindex);
    report.compare({"pvindex text, beside a floor program", ours, add("Process: floor", floor),
                    Target::atMostMore(kMilliseconds)});
    report.compare({"pvindex text, beside a Python script", ours, add("Process: Python", python),
                    Target::atLeast(kTimesPython)});
    addRtfProcess(packages, report);
    addPdfProcess(packages, report);
}

}  // namespace bench
