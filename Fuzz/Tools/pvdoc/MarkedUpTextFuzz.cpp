// Texts with marks, as pvdoc packs them.

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/Unicode.h"
#include "Tools/pvdoc/MarkedUpText.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view source(reinterpret_cast<const char*>(bytes), size);
    const auto text = pvdoc::attributedTextFromMarks(
        platform::utf16FromUtf8Lossy(source),
        [](const std::string& name) -> platform::Result<platform::Data> {
            return platform::Data::copyOf(name);
        });
    if (!text) {
        fuzz::expect(!text.fault().detail.empty(), "a fault says what is wrong");
        return 0;
    }
    std::uint64_t covered = 0;
    for (const platform::AttributeRun& run : text.value().runs()) {
        covered += run.length;
    }
    fuzz::expect(covered == text.value().length(), "runs are as long as the text");
    return 0;
}
