#include "Platform/Text/TextReader.h"

#include <string>
#include <utility>

#include "Platform/Text/HtmlReader.h"
#include "Platform/Text/PlainText.h"
#include "Platform/Text/RtfReader.h"
#include "Platform/Text/RtfdReader.h"

namespace platform {

Result<AttributedString> attributedStringFromData(const Data& data, TextFormat otherwise) {
    const auto [format, name] = textFormatOfBytes(data.view());
    switch (format == TextFormat::Plain ? otherwise : format) {
        case TextFormat::Plain:
            return AttributedString(PV_TRY(plainTextFromBytes(data.view())));
        case TextFormat::Rtf:
            return attributedStringFromRtf(data);
        case TextFormat::FlatRtfd:
            return attributedStringFromFlatRtfd(data);
        case TextFormat::Html:
            return attributedStringFromHtml(data);
        case TextFormat::Pdf:
        case TextFormat::Binary:
            return Fault{FaultCode::Unsupported, "no text: " + std::string(name)};
        default:
            return Fault{FaultCode::Unsupported, std::string(name) + " is not read yet"};
    }
}

}  // namespace platform
