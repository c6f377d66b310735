// Bytes of a plain text in whatever encoding.

#include <cstring>
#include <string>

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/WideText.h"
#include "Platform/Text/BareWideText.h"
#include "Platform/Text/PlainText.h"
#include "Platform/Text/TextFormat.h"

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// UTF-8 comes back as it was, where the bytes neither are nor switch to something else.
void expectUtf8IsKept(std::string_view bytes, const std::u16string& text) {
    const bool isOther = platform::wideMarkOf(bytes) || platform::evidentWideEncoding(bytes) ||
                         bytes.starts_with(kUtf8Mark) || bytes.find('\x1B') != bytes.npos;
    if (!isOther && platform::utf16FromUtf8(bytes)) {
        fuzz::expect(platform::utf8FromUtf16(text) == bytes, "UTF-8 is kept");
    }
}

/// The bytes, made UTF-16 by a mark, come back as they were.
void expectUtf16IsKept(std::string_view bytes) {
    const std::string_view units = bytes.substr(0, bytes.size() / 2 * 2);
    const std::string marked = "\xFF\xFE" + std::string(units);
    const auto text = platform::plainTextFromBytes(marked);
    const bool isUtf32 = units.starts_with(std::string_view("\0\0", 2));
    if (text && !isUtf32) {
        fuzz::expect(text.value().size() * 2 == units.size(), "UTF-16 keeps its length");
        fuzz::expect(
            units.empty() || std::memcmp(text.value().data(), units.data(), units.size()) == 0,
            "UTF-16 is kept");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    fuzz::expect(!platform::textFormatOfBytes(input.view()).name.empty(), "formats have names");
    const auto text = platform::plainTextFromBytes(input.view());
    if (text) {
        fuzz::expect(text.value().size() <= size, "a unit takes a byte at least");
        expectUtf8IsKept(input.view(), text.value());
    } else {
        fuzz::expect(!text.fault().detail.empty(), "a fault says what is wrong");
    }
    expectUtf16IsKept(input.view());
    return 0;
}
