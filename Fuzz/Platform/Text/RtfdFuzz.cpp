// RTFD in one run of bytes, and what its attachments hold.

#include <memory>

#include "Fuzz/Support/Input.h"
#include "Platform/Text/RtfdReader.h"
#include "Platform/Text/TextAttachment.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const platform::Data input = fuzz::dataOfInput(bytes, size);
    const auto text = platform::attributedStringFromFlatRtfd(input);
    if (!text) {
        fuzz::expect(!text.fault().detail.empty(), "a refusal has a reason");
        return 0;
    }
    fuzz::expect(text.value().length() <= 2 * size, "no text comes from nothing");
    for (const auto& [length, attributes] : text.value().runs()) {
        const auto* const value =
            attributes ? attributes->find(platform::kAttachmentAttributeName) : nullptr;
        const auto attachment =
            value ? std::dynamic_pointer_cast<const platform::TextAttachment>(value->object())
                  : nullptr;
        const auto file = attachment ? attachment->fileWrapper() : nullptr;
        if (file != nullptr && file->isRegularFile()) {
            fuzz::expect(file->regularFileContents()->size() <= size, "files lie in the input");
        }
    }
    return 0;
}
