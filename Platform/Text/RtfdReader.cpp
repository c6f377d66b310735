#include "Platform/Text/RtfdReader.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/FileWrapperSerialization.h"
#include "Platform/Text/PlainText.h"
#include "Platform/Text/RtfReader.h"
#include "Platform/Text/TextAttachment.h"

namespace platform {
namespace {

constexpr std::string_view kText = "TXT.rtf";

/// The folder's text; null when there is none.
std::shared_ptr<FileWrapper> textIn(const FileWrapper& folder) {
    auto text = folder.fileWrapperForKey(kText);
    if (text == nullptr) {
        const auto& children = folder.fileWrappers();
        const auto found = std::find_if(children.begin(), children.end(), [](const auto& entry) {
            return equalIgnoringAsciiCase(entry.key, kText);
        });
        text = found != children.end() ? found->child : nullptr;
    }
    return text != nullptr && text->isRegularFile() ? text : nullptr;
}

Result<AttributedString> textOfFolder(const FileWrapper& wrapper) {
    const auto text = textIn(wrapper);
    const auto contents = text != nullptr ? text->regularFileContents() : std::nullopt;
    if (!contents) {
        return Fault{FaultCode::Malformed, "RTFD without a TXT.rtf that can be read"};
    }
    if (!isRtf(contents->view())) {
        return AttributedString(PV_TRY(plainTextFromBytes(contents->view())));
    }
    // A file that the text shows twice is one attachment, so that it is read once, by one thread.
    std::map<std::string, std::shared_ptr<const TextAttachment>, std::less<>> attachments;
    return attributedStringFromRtf(*contents, [&](std::string_view name) {
        auto& attachment = attachments[std::string(name)];
        auto file = attachment == nullptr ? wrapper.fileWrapperForKey(name) : nullptr;
        if (file != nullptr) {
            attachment = TextAttachment::ofUnreadFile(std::move(file));
        }
        return attachment;
    });
}

}  // namespace

Result<AttributedString> attributedStringFromRtfd(const FileWrapper& wrapper) {
    if (!wrapper.isDirectory()) {
        const auto bytes =
            wrapper.isRegularFile() ? wrapper.regularFileContents() : std::optional<Data>();
        return bytes ? attributedStringFromFlatRtfd(*bytes)
                     : Fault{FaultCode::Malformed, "RTFD that is no folder"};
    }
    return textOfFolder(wrapper);
}

Result<AttributedString> attributedStringFromFlatRtfd(const Data& data) {
    const auto wrapper = PV_TRY(fileWrapperFromSerializedRepresentation(data));
    return wrapper->isDirectory() ? textOfFolder(*wrapper)
                                  : Fault{FaultCode::Malformed, "flat RTFD that holds no folder"};
}

}  // namespace platform
