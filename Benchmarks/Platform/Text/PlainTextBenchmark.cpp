// Plain text of 20 MB in several encodings, beside loops that only widen or copy it.
//
// The floor of an encoding knows it beforehand and checks nothing: bytes are widened, or looked up
// in a table, and units are copied. That of UTF-8 is the conversion alone.

#include "Platform/Text/PlainText.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "Benchmarks/Support/Benchmarks.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/SingleByteCodePages.h"

namespace bench {
namespace {

constexpr std::size_t kSize = 20'000'000;

using Floor = std::u16string (*)(std::string_view bytes);

std::u16string widened(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    for (std::size_t i = 0; i < bytes.size(); i++) {
        text[i] = static_cast<unsigned char>(bytes[i]);
    }
    return text;
}

std::u16string copied(std::string_view bytes) {
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

std::u16string converted(std::string_view bytes) {
    return *platform::utf16FromUtf8(bytes);
}

/// Through the table of windows-1251.
std::u16string lookedUp(std::string_view bytes) {
    constexpr int kCyrillic = 1251;
    static const std::u16string_view upper = platform::upperHalfOfCodePage(kCyrillic);
    std::u16string text(bytes.size(), u'\0');
    for (std::size_t i = 0; i < bytes.size(); i++) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        text[i] = byte < 0x80 ? byte : upper[byte - 0x80U];
    }
    return text;
}

constexpr std::u16string_view kEnglish =
    u"The keeper of the lighthouse climbed the stairs every evening and lit the lamp.\n";
constexpr std::u16string_view kGerman =
    u"Der Wärter des Leuchtturms stieg jeden Abend die Treppe hinauf und zündete die Lampe an.\n";
constexpr std::u16string_view kRussian =
    u"Смотритель маяка каждый вечер поднимался по лестнице и зажигал лампу.\n";
constexpr std::u16string_view kJapanese = u"灯台守は毎晩、二百段の階段を登りました。\n";

std::string repeated(const std::string& piece) {
    std::string bytes;
    while (bytes.size() < kSize) {
        bytes += piece;
    }
    return bytes;
}

std::string utf16Bytes(std::u16string_view text, bool isBigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(isBigEndian ? unit >> 8 : unit);
        bytes += static_cast<char>(isBigEndian ? unit : unit >> 8);
    }
    return bytes;
}

std::string cyrillicBytes(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit < 0x80 ? unit : unit - u'А' + 0xC0);
    }
    return bytes;
}

struct TextShape {
    const char* name;
    std::string bytes;
    Floor floor;
    double target;
};

std::array<TextShape, 6> shapes() {
    return {{
        {"ASCII", repeated(platform::utf8FromUtf16(kEnglish)), widened, 2},
        {"German in UTF-8", repeated(platform::utf8FromUtf16(kGerman)), converted, 1.5},
        {"Japanese in UTF-8", repeated(platform::utf8FromUtf16(kJapanese)), converted, 1.5},
        {"UTF-16 with a mark", "\xFF\xFE" + repeated(utf16Bytes(kGerman, false)), copied, 3},
        {"UTF-16 without one", repeated(utf16Bytes(kGerman, true)), copied, 4},
        {"windows-1251", repeated(cyrillicBytes(kRussian)), lookedUp, 3},
    }};
}

void read(benchmark::State& state, const std::shared_ptr<const std::string>& bytes) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(platform::plainTextFromBytes(*bytes));
    }
}

void readFloor(benchmark::State& state, const std::shared_ptr<const std::string>& bytes,
               Floor floor) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(floor(*bytes));
    }
}

}  // namespace

void addPlainTextBenchmarks(Report& report) {
    report.begin("20 MB of plain text, beside a loop that only widens or copies it");
    for (TextShape& shape : shapes()) {
        const auto bytes = std::make_shared<const std::string>(std::move(shape.bytes));
        const std::string ours = std::string("Plain text: ") + shape.name;
        const std::string other = std::string("Plain text's floor: ") + shape.name;
        benchmark::RegisterBenchmark(ours.c_str(), read, bytes)->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark(other.c_str(), readFloor, bytes, shape.floor)
            ->Unit(benchmark::kMillisecond);
        report.compare({shape.name, ours, other, Target::atMost(shape.target)});
    }
}

}  // namespace bench
