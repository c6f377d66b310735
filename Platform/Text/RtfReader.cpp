#include "Platform/Text/RtfReader.h"

#include "Platform/Text/RtfParser.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

/// A mark that editors of plain text put in front.
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF"sv;

std::string_view withoutMark(std::string_view bytes) {
    bytes.remove_prefix(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0);
    return bytes;
}

}  // namespace

bool isRtf(std::string_view bytes) {
    return withoutMark(bytes).starts_with("{\\rtf"sv);
}

Result<AttributedString> attributedStringFromRtf(const Data& data,
                                                 const AttachmentFinder& findAttachment) {
    if (!isRtf(data.view())) {
        return Fault{FaultCode::Malformed, "no RTF: it does not begin with {\\rtf"};
    }
    return RtfParser(withoutMark(data.view()), findAttachment).parse();
}

}  // namespace platform
