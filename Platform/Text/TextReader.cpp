#include "Platform/Text/TextReader.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF"sv;
constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF"sv;
constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE"sv;

std::u16string utf16FromBytes(std::string_view bytes, bool isBigEndian) {
    std::u16string text(bytes.size() / 2, u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(bytes[2 * i]);
        const auto second = static_cast<unsigned char>(bytes[2 * i + 1]);
        text[i] = static_cast<char16_t>(isBigEndian ? first << 8 | second : second << 8 | first);
    }
    return text;
}

/// Whether `unit` is a control character that stands in no text: all but those for white space, the
/// bell, backspace, shifts and escape, which terminals and old printers left in files.
bool isBinary(char16_t unit) {
    return unit < 0x20 && !(unit >= 0x07 && unit <= 0x0F) && unit != 0x1B && unit != 0x1A;
}

}  // namespace

Result<AttributedString> attributedStringFromData(const Data& data) {
    std::string_view bytes = data.view();
    const bool isBigEndian = bytes.starts_with(kUtf16BigEndianMark);
    if (isBigEndian || bytes.starts_with(kUtf16LittleEndianMark)) {
        if (bytes.size() % 2 != 0) {
            return Fault{FaultCode::Truncated, "UTF-16 text that ends inside a unit"};
        }
        return AttributedString(utf16FromBytes(bytes.substr(2), isBigEndian));
    }
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    }
    auto text = utf16FromUtf8(bytes);
    if (!text) {
        return Fault{FaultCode::Unsupported, "text that is not UTF-8"};
    }
    const auto odd = std::find_if(text->begin(), text->end(), isBinary);
    if (odd != text->end()) {
        return Fault{FaultCode::Unsupported, "no text: control character at position " +
                                                 std::to_string(odd - text->begin())};
    }
    return AttributedString(std::move(*text));
}

}  // namespace platform
