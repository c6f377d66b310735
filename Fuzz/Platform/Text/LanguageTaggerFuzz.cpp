// Any units as a text, sound or not, whose language is asked for.

#include <string>

#include "Fuzz/Support/Input.h"
#include "Platform/Text/LanguageTagger.h"

namespace {

/// Two bytes a unit, the lower first; a byte that is left over is a unit.
std::u16string unitsOf(const std::uint8_t* bytes, std::size_t size) {
    std::u16string units;
    for (std::size_t i = 0; i < size; i += 2) {
        const unsigned upper = i + 1 < size ? bytes[i + 1] : 0;
        units += static_cast<char16_t>(bytes[i] | upper << 8);
    }
    return units;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::u16string text = unitsOf(bytes, size);
    const std::string language = platform::LanguageTagger::dominantLanguageForString(text);
    fuzz::expect(language.size() >= 2, "a text has a language, be it und");
    fuzz::expect(platform::LanguageTagger::dominantLanguageForString(text) == language,
                 "the answer depends on nothing but the text");
    return 0;
}
