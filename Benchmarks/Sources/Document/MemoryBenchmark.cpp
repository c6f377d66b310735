// How much memory a document takes while it is read, beside what its members inflate to.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Floor.h"
#include "Benchmarks/Support/Process.h"

namespace bench {
namespace {

double megabytesAtPeak(const std::string& path) {
    const ProcessRun run = runProcess({PV_BENCH_MEMORY, path});
    if (run.status != 0) {
        std::fprintf(stderr, "%s: cannot be measured\n", path.c_str());
        std::abort();
    }
    return std::strtod(run.output.c_str(), nullptr) * 1024 / 1e6;
}

void measure(const Packages& packages, Report& report, const Shape& shape) {
    constexpr double kTimes = 6;
    constexpr double kBase = 16;
    const std::string path = packages.pathOf(shape);
    const FloorPackage package = floorPackage(path.c_str());
    const auto inflated = static_cast<double>(package.contents.size + package.text.size) / 1e6;
    const std::string name = "Memory: " + shape.name();
    report.keep(name, megabytesAtPeak(path));
    report.keep(name + ", bound", kTimes * inflated + kBase);
    report.compare({shape.name(), name, name + ", bound", Target::atMost(1)});
}

}  // namespace

void measureMemory(const Packages& packages, Report& report) {
    report.begin("Memory at its peak, beside 6 times what is inflated and 16 MB");
    measure(packages, report, {10'000, 1, 1});
    measure(packages, report, {1'000'000, 100, 10});
    measure(packages, report, {20'000'000, 100, 10});
    measure(packages, report, {1'000'000, 50'000, 64});
    measure(packages, report, {1'000'000, 50'000, 50'000});
    measure(packages, report, {1'000'000, 50'000, 50'000, OwnValue::String});
}

}  // namespace bench
