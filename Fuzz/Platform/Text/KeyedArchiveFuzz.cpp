// Keyed archives, attributed text among their objects.

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/AttributedStringCoding.h"

namespace {

void expectRunsCoverText(const platform::AttributedString& text) {
    std::uint64_t covered = 0;
    for (const platform::AttributeRun& run : text.runs()) {
        fuzz::expect(run.length > 0, "no run is empty");
        covered += run.length;
    }
    fuzz::expect(covered == text.length(), "runs are as long as the text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    fuzz::allowExceptions([&] {
        const auto unarchiver = platform::KeyedUnarchiver::initForReadingWithData(input);
        unarchiver->addClasses(platform::attributedTextClasses());
        const auto root = unarchiver->decodeObject().object();
        if (const auto* text = dynamic_cast<const platform::AttributedString*>(root.get())) {
            expectRunsCoverText(*text);
        }
        unarchiver->finishDecoding();
    });
    return 0;
}
