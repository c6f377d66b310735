// RTF, whatever stands behind its first word.

#include <string>

#include "Fuzz/Support/Input.h"
#include "Platform/Text/RtfReader.h"
#include "Platform/Text/RtfWriter.h"
#include "Platform/Text/TextAttachment.h"

namespace {

/// The characters that are no attachments.
std::u16string textIn(const platform::AttributedString& string) {
    std::u16string text;
    std::size_t start = 0;
    for (const auto& [length, attributes] : string.runs()) {
        fuzz::expect(length > 0, "no run is empty");
        if (attributes == nullptr ||
            attributes->find(platform::kAttachmentAttributeName) == nullptr) {
            text.append(string.string(), start, length);
        }
        start += length;
    }
    fuzz::expect(start == string.length(), "runs are as long as the text");
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    const auto string = platform::attributedStringFromRtf(input);
    fuzz::expect(static_cast<bool>(string) == platform::isRtf(input.view()),
                 "all that begins as RTF does is read");
    if (string) {
        fuzz::expect(string.value().length() <= 2 * size, "no text comes from nothing");
        const std::u16string text = textIn(string.value());
        const auto again =
            platform::attributedStringFromRtf(platform::rtfFromAttributedString(string.value()));
        fuzz::expect(again && again.value().string() == text, "what is written is read again");
    }
    return 0;
}
