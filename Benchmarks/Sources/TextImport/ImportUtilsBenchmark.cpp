// The clean-up of imported text: beside a copy where there is nothing to do, and whether its time
// grows with the text and its hyphens alone.

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Sentences.h"
#include "Platform/Text/AttributedString.h"
#include "Sources/TextImport/ImportUtils.h"

namespace bench {
namespace {

using parlavox::ImportUtils;
using platform::AttributedString;
using Copy = AttributedString (*)(const AttributedString&);
using SharedText = std::shared_ptr<const AttributedString>;

std::string add(const std::string& name, Copy copy, const SharedText& text) {
    benchmark::RegisterBenchmark(name.c_str(), [copy, text](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(copy(*text));
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

std::string addPlainCopy(const SharedText& text) {
    const std::string name = "Clean-up: a copy in memory";
    benchmark::RegisterBenchmark(name.c_str(), [text](benchmark::State& state) {
        const std::u16string& source = text->string();
        std::u16string target(source.size(), u'\0');
        for (auto _ : state) {
            std::memcpy(target.data(), source.data(), source.size() * sizeof(char16_t));
            benchmark::ClobberMemory();
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

/// Text of at least `units` units in which each piece follows the one before.
SharedText repeated(std::u16string_view piece, std::uint64_t units) {
    std::u16string text;
    while (text.size() < units) {
        text += piece;
    }
    return std::make_shared<const AttributedString>(std::move(text));
}

/// Sentences in which every line of about 80 units ends inside a word.
SharedText brokenAtLineEnds(std::uint64_t units) {
    std::u16string text = sentencesOf(units);
    for (std::size_t at = 80; at < text.size(); at += 82) {
        text.insert(at, u"- ");
    }
    return std::make_shared<const AttributedString>(std::move(text));
}

}  // namespace

void addImportBenchmarks(Report& report) {
    report.begin("Clean-up of 20 MB with nothing to clean");
    const auto text = std::make_shared<const AttributedString>(sentencesOf(10'000'000));
    const std::string plain = addPlainCopy(text);
    const auto compare = [&](const std::string& what, Copy copy, double times) {
        report.compare({what, add("Clean-up: " + what, copy, text), plain, Target::atMost(times)});
    };
    compare("of NULs", ImportUtils::createCleanCopy, 1);
    compare("of attachments", ImportUtils::createCopyWithoutAttachments, 0.1);
    compare("of PDF text", ImportUtils::createCleanCopyFromPDFString, 2);

    report.begin("Clean-up of twice the text");
    constexpr double kLinear = 2.3;
    constexpr std::uint64_t kUnits = 200'000;
    const auto grow = [&](const std::string& what, Copy copy, const auto& textOf) {
        const std::string half = add("Clean-up: half, " + what, copy, textOf(kUnits));
        const std::string whole = add("Clean-up: whole, " + what, copy, textOf(2 * kUnits));
        report.compare({what, whole, half, Target::atMost(kLinear)});
    };
    const auto pieces = [](std::u16string_view piece) {
        return [piece](std::uint64_t units) {
            return repeated(piece, units);
        };
    };
    using namespace std::string_view_literals;
    grow("a NUL in ten", ImportUtils::createCleanCopy, pieces(u"nine units\0"sv));
    const Copy pdf = ImportUtils::createCleanCopyFromPDFString;
    grow("lines of 80", pdf, brokenAtLineEnds);
    grow("no language", pdf, pieces(u"1- 2 3- 4 5- 6, 7- 8 9. "sv));
    grow("no language, short sentences", pdf, pieces(u"1- 2\n"sv));
    grow("no language, one sentence", pdf, pieces(u"zq- zx "sv));
}

}  // namespace bench
