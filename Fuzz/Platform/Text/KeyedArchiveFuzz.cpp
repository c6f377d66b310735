// Keyed archives, attributed text among their objects.

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/KeyedArchiver.h"
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

platform::Value rootOf(const platform::Data& archive) {
    const auto unarchiver = platform::KeyedUnarchiver::initForReadingWithData(archive);
    unarchiver->addClasses(platform::attributedTextClasses());
    platform::Value root = unarchiver->decodeObject();
    unarchiver->finishDecoding();
    return root;
}

platform::Data archiveOf(const platform::Value& root) {
    return platform::KeyedArchiver::archivedDataWithRootObject(root);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    fuzz::allowExceptions([&] {
        const platform::Value root = rootOf(input);
        const auto object = root.object();
        if (const auto* text = dynamic_cast<const platform::AttributedString*>(object.get())) {
            expectRunsCoverText(*text);
        }
        // The first time, equal parts may come together; from then on nothing changes.
        const platform::Data archive = archiveOf(rootOf(archiveOf(root)));
        fuzz::expect(archiveOf(rootOf(archive)) == archive, "what is read is written as it was");
    });
    return 0;
}
