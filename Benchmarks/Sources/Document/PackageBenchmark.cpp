// A package in, its text out, within one process: through the plug-in's entry and through the
// document, beside the least that has to be done for the same text.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Floor.h"
#include "Platform/Foundation/URL.h"
#include "Sources/Document/Document.h"
#include "Tests/Support/LoadedImporter.h"

namespace bench {
namespace {

constexpr char kType[] = "com.brightmill.parlavox.parlavox";

std::shared_ptr<parlavox::Document> documentAt(const std::string& path) {
    auto document = parlavox::Document::init();
    return document->readFromURL(platform::URL::fileURLWithPath(path), kType, nullptr) ? document
                                                                                       : nullptr;
}

void readDocument(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        const auto document = documentAt(path);
        benchmark::DoNotOptimize(document->textStorage()->string().data());
    }
}

/// The bundle, loaded once; it stays until the process ends.
const test::LoadedImporter& importer() {
    static const auto& loaded = *new test::LoadedImporter(PV_BENCH_BUNDLE);
    return loaded;
}

test::CFOwner<CFMutableDictionaryRef> importedAttributes(const std::string& path) {
    test::CFOwner<CFMutableDictionaryRef> attributes(CFDictionaryCreateMutable(
        kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    if (!importer().import(attributes.get(), test::makeCFString(kType).get(), path)) {
        attributes.reset();
    }
    return attributes;
}

void importFile(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        const auto attributes = importedAttributes(path);
        benchmark::DoNotOptimize(attributes.get());
    }
}

void pickString(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        const FloorPackage package = floorPackage(path.c_str());
        const std::u16string text = floorString(package.text.view());
        benchmark::DoNotOptimize(text.data());
    }
}

/// A ratio means something only where all give the same text.
void checkThatTextsAgree(const Shape& shape, const std::string& path) {
    const std::u16string wanted = floorString(floorPackage(path.c_str()).text.view());
    const auto document = documentAt(path);
    const auto attributes = importedAttributes(path);
    const auto* const text =
        static_cast<CFStringRef>(CFDictionaryGetValue(attributes.get(), kMDItemTextContent));
    std::u16string imported(static_cast<std::size_t>(CFStringGetLength(text)), u'\0');
    CFStringGetCharacters(text, {0, CFStringGetLength(text)},
                          reinterpret_cast<UniChar*>(imported.data()));
    const bool haveAllRuns =
        document->textStorage()->attributedString().runs().size() == shape.runs;
    if (wanted.size() != shape.units || document->textStorage()->string() != wanted ||
        imported != wanted || !haveAllRuns) {
        std::fprintf(stderr, "%s: the texts differ\n", shape.name().c_str());
        std::abort();
    }
}

void compareWithFloor(const Packages& packages, Report& report, const Shape& shape, double times) {
    const std::string path = packages.pathOf(shape);
    checkThatTextsAgree(shape, path);
    const std::string name = shape.name();
    const auto add = [&](const char* kind, auto function) {
        std::string full = kind + name;
        benchmark::RegisterBenchmark(full.c_str(), function, path)->Unit(benchmark::kMillisecond);
        return full;
    };
    const std::string floor = add("Floor: ", pickString);
    report.compare({name, add("Document: ", readDocument), floor, Target::atMost(times)});
    report.compare(
        {"  through the plug-in", add("Plug-in: ", importFile), floor, Target::atMost(times)});
}

/// Twice the input must take no more than twice the time.
void compareWithHalf(const Packages& packages, Report& report, const Shape& half,
                     const Shape& whole) {
    constexpr double kLinear = 2.1;
    for (const Shape& shape : {half, whole}) {
        benchmark::RegisterBenchmark(("Linear: " + shape.name()).c_str(), readDocument,
                                     packages.pathOf(shape))
            ->Unit(benchmark::kMillisecond);
    }
    report.compare({whole.name() + " / half", "Linear: " + whole.name(), "Linear: " + half.name(),
                    Target::atMost(kLinear)});
}

}  // namespace

void addPackageBenchmarks(const Packages& packages, Report& report) {
    constexpr double kTextAlone = 1.3;
    constexpr double kAllRuns = 2;
    constexpr std::uint64_t kSmall = 10'000;
    constexpr std::uint64_t kMedium = 1'000'000;
    constexpr std::uint64_t kLarge = 20'000'000;
    constexpr std::uint64_t kMany = 50'000;
    report.begin("A package to its text, all runs decoded, beside picking the text alone");
    for (const std::uint64_t units : {kSmall, kMedium, kLarge}) {
        compareWithFloor(packages, report, {units, 1, 1}, kTextAlone);
        compareWithFloor(packages, report, {units, 100, 10}, kTextAlone);
    }
    compareWithFloor(packages, report, {kMedium, 1, 1, OwnValue::Number, Script::Greek},
                     kTextAlone);
    // Many runs of few sets are what long documents have; as many sets as runs are the worst.
    for (const std::uint64_t units : {kMedium, kLarge}) {
        compareWithFloor(packages, report, {units, kMany, 64}, kAllRuns);
        compareWithFloor(packages, report, {units, kMany, kMany}, kAllRuns);
    }
    compareWithFloor(packages, report, {kMedium, kMany, kMany, OwnValue::String}, kAllRuns);

    report.begin("Twice as much in at most twice the time");
    // Both sides of a row lie on one side of the size from which on members go through the disk,
    // and of the one from which on the allocator asks the system for new pages each time (32 MiB).
    compareWithHalf(packages, report, {2'000'000, 100, 10}, {4'000'000, 100, 10});
    compareWithHalf(packages, report, {36'000'000, 100, 10}, {72'000'000, 100, 10});
    compareWithHalf(packages, report, {kMedium, kMany, 64}, {2 * kMedium, 2 * kMany, 64});
    compareWithHalf(packages, report, {kMedium / 2, kMany / 2, kMany / 2}, {kMedium, kMany, kMany});
}

}  // namespace bench
