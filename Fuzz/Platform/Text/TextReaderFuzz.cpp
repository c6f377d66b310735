// Bytes of a text in whatever format.

#include "Fuzz/Support/Input.h"
#include "Platform/Text/TextReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto text = platform::attributedStringFromData(fuzz::dataOfInput(bytes, size));
    if (!text) {
        fuzz::expect(!text.fault().detail.empty(), "a fault says what is wrong");
    }
    return 0;
}
