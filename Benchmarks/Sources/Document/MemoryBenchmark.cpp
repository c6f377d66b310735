// How much memory a document takes while it is read, beside what its members inflate to, or its
// size.

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Floor.h"
#include "Benchmarks/Support/Process.h"
#include "Benchmarks/Support/RtfDocuments.h"

namespace bench {
namespace {

constexpr double kTimes = 6;
constexpr double kBase = 16;

double megabytesAtPeak(const std::string& path, const std::string& type) {
    const ProcessRun run = runProcess({PV_BENCH_MEMORY, path, type});
    if (run.status != 0) {
        std::fprintf(stderr, "%s: cannot be measured\n", path.c_str());
        std::abort();
    }
    return std::strtod(run.output.c_str(), nullptr) * 1024 / 1e6;
}

void measure(const Packages& packages, Report& report, const Shape& shape) {
    const std::string path = packages.pathOf(shape);
    const FloorPackage package = floorPackage(path.c_str());
    const auto inflated = static_cast<double>(package.contents.size + package.text.size) / 1e6;
    const std::string name = "Memory: " + shape.name();
    report.keep(name, megabytesAtPeak(path, "com.brightmill.parlavox.parlavox"));
    report.keep(name + ", bound", kTimes * inflated + kBase);
    report.compare({shape.name(), name, name + ", bound", Target::atMost(1)});
}

void measureRtf(const Packages& packages, Report& report, const RtfShape& shape) {
    constexpr std::size_t kSize = 5'000'000;
    const std::string path = packages.folder() + "/memory.rtf";
    std::ofstream(path, std::ios::binary) << rtfDocument(shape, kSize).view();
    const std::string name = "Memory: RTF, " + std::string(shape.name);
    report.keep(name, megabytesAtPeak(path, "public.rtf"));
    report.keep(name + ", bound", kTimes * kSize / 1e6 + kBase);
    report.compare(
        {"5 MB of RTF, " + std::string(shape.name), name, name + ", bound", Target::atMost(1)});
}

}  // namespace

void measureMemory(const Packages& packages, Report& report) {
    report.begin("Memory at its peak, beside 6 times what is inflated, or the file, and 16 MB");
    measure(packages, report, {10'000, 1, 1});
    measure(packages, report, {1'000'000, 100, 10});
    measure(packages, report, {20'000'000, 100, 10});
    measure(packages, report, {1'000'000, 50'000, 64});
    measure(packages, report, {1'000'000, 50'000, 50'000});
    measure(packages, report, {1'000'000, 50'000, 50'000, OwnValue::String});
    for (const RtfShape& shape : kRtfShapes) {
        measureRtf(packages, report, shape);
    }
}

}  // namespace bench
