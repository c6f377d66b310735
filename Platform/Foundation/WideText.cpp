#include "Platform/Foundation/WideText.h"

#include <bit>
#include <cstring>

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

struct MarkBytes {
    std::string_view bytes;
    WideEncoding encoding;
};

// The shorter mark begins one of the longer ones.
constexpr MarkBytes kMarks[] = {
    {"\xFF\xFE\0\0"sv, WideEncoding::Utf32LittleEndian},
    {"\0\0\xFE\xFF"sv, WideEncoding::Utf32BigEndian},
    {"\xFF\xFE"sv, WideEncoding::Utf16LittleEndian},
    {"\xFE\xFF"sv, WideEncoding::Utf16BigEndian},
};

bool isOtherOrder(WideEncoding encoding) {
    const bool isBigEndian =
        encoding == WideEncoding::Utf16BigEndian || encoding == WideEncoding::Utf32BigEndian;
    return isBigEndian != (std::endian::native == std::endian::big);
}

constexpr char16_t withBytesSwapped(char16_t unit) {
    return static_cast<char16_t>(unit << 8 | unit >> 8);
}

constexpr char32_t withBytesSwapped(char32_t unit) {
    return unit << 24 | (unit & 0xFF00) << 8 | (unit >> 8 & 0xFF00) | unit >> 24;
}

std::u16string textFromUtf16(std::string_view bytes, bool areSwapped) {
    const std::size_t count = bytes.size() / sizeof(char16_t);
    std::u16string text(count, u'\0');
    std::memcpy(text.data(), bytes.data(), count * sizeof(char16_t));
    if (areSwapped) {
        for (char16_t& unit : text) {
            unit = withBytesSwapped(unit);
        }
    }
    return text;
}

void appendUtf16(std::u16string& text, char32_t value) {
    if (value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) {
        text.push_back(kReplacementCharacter);
    } else if (value < 0x10000) {
        text.push_back(static_cast<char16_t>(value));
    } else {
        text.push_back(static_cast<char16_t>(0xD7C0 + (value >> 10)));
        text.push_back(static_cast<char16_t>(0xDC00 + (value & 0x3FF)));
    }
}

std::u16string textFromUtf32(std::string_view bytes, bool areSwapped) {
    std::u16string text;
    text.reserve(bytes.size() / sizeof(char32_t) + 1);
    for (; bytes.size() >= sizeof(char32_t); bytes.remove_prefix(sizeof(char32_t))) {
        char32_t unit = 0;
        std::memcpy(&unit, bytes.data(), sizeof unit);
        appendUtf16(text, areSwapped ? withBytesSwapped(unit) : unit);
    }
    return text;
}

std::size_t unitSize(WideEncoding encoding) {
    const bool isUtf16 =
        encoding == WideEncoding::Utf16BigEndian || encoding == WideEncoding::Utf16LittleEndian;
    return isUtf16 ? sizeof(char16_t) : sizeof(char32_t);
}

}  // namespace

std::optional<WideMark> wideMarkOf(std::string_view bytes) {
    for (const MarkBytes& mark : kMarks) {
        if (bytes.starts_with(mark.bytes)) {
            return WideMark{mark.encoding, mark.bytes.size()};
        }
    }
    return std::nullopt;
}

std::u16string utf16FromWideBytes(std::string_view bytes, WideEncoding encoding) {
    const std::size_t size = unitSize(encoding);
    const bool areSwapped = isOtherOrder(encoding);
    std::u16string text = size == sizeof(char16_t) ? textFromUtf16(bytes, areSwapped)
                                                   : textFromUtf32(bytes, areSwapped);
    if (bytes.size() % size != 0) {
        text.push_back(kReplacementCharacter);
    }
    return text;
}

std::optional<std::u16string> utf16FromMarkedBytes(std::string_view bytes) {
    const auto mark = wideMarkOf(bytes);
    if (!mark) {
        return std::nullopt;
    }
    return utf16FromWideBytes(bytes.substr(mark->size), mark->encoding);
}

std::u16string utf16FromBigEndianUtf16(std::string_view bytes) {
    return utf16FromWideBytes(bytes, WideEncoding::Utf16BigEndian);
}

}  // namespace platform
