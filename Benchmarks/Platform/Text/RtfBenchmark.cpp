// Documents of 5 MB in RTF, beside a loop that only strips what is no text, and twice as long.

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/RtfDocuments.h"
#include "Platform/Text/RtfReader.h"

namespace bench {
namespace {

using platform::Data;

constexpr std::size_t kSize = 5'000'000;

/// How much more than to strip a document it may be to read it. The loop converts nothing and knows
/// no looks, so where there is little else it is a hard measure.
constexpr double kTimes = 2.5;

/// Bytes that are no text of their own.
constexpr auto kSigns = [] {
    std::array<bool, 256> signs{};
    for (const unsigned char sign : {'{', '}', '\\', '\r', '\n'}) {
        signs[sign] = true;
    }
    return signs;
}();

bool isLetterOrDigit(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') || byte == '-';
}

/// The floor: what is left of a document without braces, line ends and control words.
std::size_t strip(std::string_view rtf, char16_t* text) {
    const char16_t* const start = text;
    const char* at = rtf.data();
    const char* const end = at + rtf.size();
    while (at != end) {
        if (!kSigns[static_cast<unsigned char>(*at)]) {
            *text++ = static_cast<unsigned char>(*at++);
        } else if (*at++ == '\\') {
            while (at != end && isLetterOrDigit(*at)) {
                ++at;
            }
            at += at != end && *at == ' ' ? 1 : 0;
        }
    }
    return static_cast<std::size_t>(text - start);
}

std::string addReader(const RtfShape& shape, std::size_t size) {
    const std::string name = "RTF: " + std::string(shape.name) + " " + std::to_string(size);
    const Data document = rtfDocument(shape, size);
    benchmark::RegisterBenchmark(name.c_str(), [document](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(platform::attributedStringFromRtf(document));
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

std::string addFloor(const RtfShape& shape) {
    const std::string name = "RTF stripped: " + std::string(shape.name);
    const Data document = rtfDocument(shape, kSize);
    benchmark::RegisterBenchmark(name.c_str(), [document](benchmark::State& state) {
        for (auto _ : state) {
            const auto text = std::make_unique_for_overwrite<char16_t[]>(document.size());
            benchmark::DoNotOptimize(strip(document.view(), text.get()));
            benchmark::ClobberMemory();
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

}  // namespace

void addRtfBenchmarks(Report& report) {
    report.begin("RTF of 5 MB, beside a loop that strips it");
    for (const RtfShape& shape : kRtfShapes) {
        report.compare(
            {shape.name, addReader(shape, kSize), addFloor(shape), Target::atMost(kTimes)});
    }
    report.begin("RTF, twice the document");
    for (const RtfShape& shape : kRtfShapes) {
        report.compare({shape.name, addReader(shape, 2 * kSize),
                        "RTF: " + std::string(shape.name) + " " + std::to_string(kSize),
                        Target::atMost(2.3)});
    }
}

}  // namespace bench
