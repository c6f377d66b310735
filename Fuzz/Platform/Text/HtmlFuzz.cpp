// A page of HTML, whatever its bytes.

#include <string>

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HtmlEncoding.h"
#include "Platform/Text/HtmlReader.h"

namespace {

void expectSound(const platform::AttributedString& string) {
    std::uint64_t length = 0;
    for (const platform::AttributeRun& run : string.runs()) {
        fuzz::expect(run.length > 0, "no run is empty");
        length += run.length;
    }
    fuzz::expect(length == string.length(), "runs are as long as the text");
    const std::string utf8 = platform::utf8FromUtf16(string.string());
    fuzz::expect(platform::utf16FromUtf8(utf8) == string.string(), "no surrogate is alone");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    const auto page = platform::utf8OfHtml(input);
    const auto string = platform::attributedStringFromHtml(input);
    fuzz::expect(static_cast<bool>(page) == static_cast<bool>(string),
                 "all that has characters is read");
    if (string) {
        fuzz::expect(platform::utf16FromUtf8(page.value().view()).has_value(),
                     "the parser gets sound UTF-8");
        // A marker of an item is the longest that comes from a few bytes.
        fuzz::expect(string.value().length() <= 8 * size + 16, "no text comes from nothing");
        expectSound(string.value());
    } else {
        fuzz::expect(!string.fault().detail.empty(), "a fault says what is wrong");
    }
    return 0;
}
