// Documents of 5 MB in RTF, beside a loop that only strips what is no text, and twice as long.
//
// The shapes are those of real documents: prose with few words of the format; the output of a word
// processor, which tells of every few words at length; text in escaped bytes of one and of two; and
// in Unicode.

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "Benchmarks/Support/Benchmarks.h"
#include "Platform/Text/RtfReader.h"

namespace bench {
namespace {

using platform::Data;

constexpr std::size_t kSize = 5'000'000;

struct RtfShape {
    const char* name;
    /// How much more than to strip it may be to read it; 0 for information. The loop converts
    /// nothing and knows no looks, so that it is no measure where there is little else.
    double times;
    /// What the document consists of, again and again.
    std::string_view piece;
};
constexpr RtfShape kShapes[] = {
    {"prose", 2.5,
     "The keeper of the lighthouse climbed the stairs every evening and lit the lamp that showed "
     "the ships their way home. Nobody had ever asked him how many steps there were, and he had "
     "never counted them.\\par\n"},
    {"a word processor's", 3.5,
     "{\\rtlch\\fcs1 \\af0\\afs24 \\ltrch\\fcs0 \\f1\\fs24\\lang1033\\langfe1024\\insrsid744138 "
     "The keeper of the lighthouse }{\\rtlch\\fcs1 \\ab\\af0 \\ltrch\\fcs0 \\b\\f1\\insrsid744138 "
     "climbed the stairs}{\\rtlch\\fcs1 \\af0 \\ltrch\\fcs0 \\insrsid7875023\\charrsid744138  "
     "every "
     "evening and lit the lamp.\\par }\\pard\\plain \\ltrpar\\ql \\li0\\ri0\\widctlpar\n"},
    {"an editor's", 0,
     "\\f0\\fs24 \\cf0 The keeper of the lighthouse \\f1\\b climbed\\f0\\b0  the stairs every "
     "evening \\i and\\i0  lit the lamp.\\\n"},
    {"escaped bytes", 2.5,
     "\\'d1\\'ec\\'ee\\'f2\\'f0\\'e8\\'f2\\'e5\\'eb\\'fc \\'ec\\'e0\\'ff\\'ea\\'e0 "},
    {"two escaped bytes a character", 0,
     "\\f2 \\'93\\'fa\\'96\\'7b\\'8c\\'ea\\'82\\'cc\\'95\\'b6\\'8f\\'cd\\f0  and \n"},
    {"Unicode", 0,
     "\\u1057?\\u1084?\\u1086?\\u1090?\\u1088?\\u1080?\\u1090?\\u1077?\\u1083?\\u1100? "},
};

Data documentOf(const RtfShape& shape, std::size_t size) {
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1251\\uc1\\deff0{\\fonttbl{\\f0\\fswiss Helvetica;}"
        "{\\f1\\froman Times;}{\\f2\\fcharset128 Mincho;}}{\\colortbl;\\red0\\green0\\blue0;}\n";
    while (rtf.size() < size) {
        rtf += shape.piece;
    }
    return Data::adopt(rtf + "}");
}

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
    const Data document = documentOf(shape, size);
    benchmark::RegisterBenchmark(name.c_str(), [document](benchmark::State& state) {
        for (auto _ : state) {
            benchmark::DoNotOptimize(platform::attributedStringFromRtf(document));
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

std::string addFloor(const RtfShape& shape) {
    const std::string name = "RTF stripped: " + std::string(shape.name);
    const Data document = documentOf(shape, kSize);
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
    for (const RtfShape& shape : kShapes) {
        const Target target = shape.times > 0 ? Target::atMost(shape.times) : Target::none();
        report.compare({shape.name, addReader(shape, kSize), addFloor(shape), target});
    }
    report.begin("RTF, twice the document");
    for (const RtfShape& shape : kShapes) {
        report.compare({shape.name, addReader(shape, 2 * kSize),
                        "RTF: " + std::string(shape.name) + " " + std::to_string(kSize),
                        Target::atMost(2.3)});
    }
}

}  // namespace bench
