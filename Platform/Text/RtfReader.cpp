#include "Platform/Text/RtfReader.h"

#include <algorithm>

#include "Platform/Text/RtfParser.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

/// A mark and white space, which editors of plain text and mail programs put in front.
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF"sv;
constexpr std::string_view kBlanks = " \t\n\v\f\r"sv;

std::string_view withoutMark(std::string_view bytes) {
    bytes.remove_prefix(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0);
    bytes.remove_prefix(std::min(bytes.find_first_not_of(kBlanks), bytes.size()));
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
