// The language of short and of longer texts, beside CLD2 alone.
//
// The texts are prose in languages that are near each other and far from each other, in three
// scripts that many languages share and in one that belongs to one alone.

#include "Platform/Text/LanguageTagger.h"

#include <benchmark/benchmark.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/Cld2.h"
#include "Platform/Foundation/Unicode.h"

namespace bench {
namespace {

constexpr std::u16string_view kProse[] = {
    u"The keeper of the lighthouse climbed the stairs every evening and lit the lamp that showed "
    u"the ships their way home. ",
    u"Der Wärter des Leuchtturms stieg jeden Abend die Treppe hinauf und zündete die Lampe an, "
    u"die den Schiffen den Weg wies. ",
    u"El guardián del faro subía todas las noches la escalera y encendía la lámpara que mostraba "
    u"a los barcos el camino. ",
    u"O guarda do farol subia as escadas todas as noites e acendia a lâmpada que mostrava aos "
    u"barcos o caminho de casa. ",
    u"Fyrvogteren gik hver aften op ad trappen og tændte lampen, som viste skibene vejen hjem "
    u"gennem natten og tågen. ",
    u"Fyrvokteren gikk opp trappen hver kveld og tente lampen som viste skipene veien hjem "
    u"gjennom natten og tåken. ",
    u"Strážce majáku vystoupal každý večer po schodech a rozsvítil lampu, která ukazovala lodím "
    u"cestu domů skrz noc. ",
    u"Смотритель маяка каждый вечер поднимался по лестнице и зажигал лампу, которая указывала "
    u"кораблям дорогу домой. ",
    u"Доглядач маяка щовечора піднімався сходами і запалював лампу, яка вказувала кораблям шлях "
    u"додому крізь ніч. ",
    u"كان حارس المنارة يصعد الدرج كل مساء ويشعل المصباح الذي يدل السفن على طريق العودة إلى "
    u"الميناء عبر الليل والضباب. ",
    u"प्रकाशस्तंभ का रखवाला हर शाम सीढ़ियाँ चढ़ता था और दीपक जलाता था जो जहाज़ों को घर का रास्ता "
    u"दिखाता था। ",
    u"Ο φαροφύλακας ανέβαινε κάθε βράδυ τη σκάλα και άναβε τη λάμπα που έδειχνε στα πλοία τον "
    u"δρόμο για το σπίτι. ",
};

struct Chunk {
    std::u16string text;
    std::string utf8;
};

/// The prose, each piece repeated and cut to `length` units.
std::vector<Chunk> chunksOf(std::size_t length) {
    std::vector<Chunk> chunks;
    for (const std::u16string_view prose : kProse) {
        std::u16string text;
        while (text.size() < length) {
            text += prose;
        }
        text.resize(length);
        std::string utf8 = platform::utf8FromUtf16(text);
        chunks.push_back({std::move(text), std::move(utf8)});
    }
    return chunks;
}

void tag(benchmark::State& state, const std::vector<Chunk>& chunks) {
    for (auto _ : state) {
        for (const Chunk& chunk : chunks) {
            benchmark::DoNotOptimize(
                platform::LanguageTagger::dominantLanguageForString(chunk.text));
        }
    }
}

void askCld2(benchmark::State& state, const std::vector<Chunk>& chunks) {
    for (auto _ : state) {
        for (const Chunk& chunk : chunks) {
            benchmark::DoNotOptimize(cld2Language(chunk.utf8));
        }
    }
}

template <class Function>
std::string add(const std::string& name, Function function, std::size_t length) {
    benchmark::RegisterBenchmark(name.c_str(), function, chunksOf(length))
        ->Unit(benchmark::kMillisecond);
    return name;
}

}  // namespace

void addLanguageBenchmarks(Report& report) {
    constexpr double kTimesLibrary = 1.5;
    (void)cld2Language("first");
    report.begin("Languages of 12 texts, beside CLD2 alone");
    for (const std::size_t length : {100, 1000}) {
        const std::string units = std::to_string(length) + " units";
        const std::string alone = add("CLD2: " + units, askCld2, length);
        report.compare({units + " each", add("Languages: " + units, tag, length), alone,
                        Target::atMost(kTimesLibrary)});
    }
}

}  // namespace bench
