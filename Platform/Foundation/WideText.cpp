#include "Platform/Foundation/WideText.h"

#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF"sv;
constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE"sv;
constexpr std::string_view kUtf32BigEndianMark = "\0\0\xFE\xFF"sv;
constexpr std::string_view kUtf32LittleEndianMark = "\xFF\xFE\0\0"sv;

enum class ByteOrder { BigEnd, LittleEnd };

/// The unit of `size` bytes at the start of `bytes`.
char32_t unitAt(std::string_view bytes, std::size_t size, ByteOrder order) {
    char32_t unit = 0;
    for (std::size_t i = 0; i < size; ++i) {
        const std::size_t place = order == ByteOrder::BigEnd ? i : size - 1 - i;
        unit = unit << 8 | static_cast<unsigned char>(bytes[place]);
    }
    return unit;
}

std::u16string textFromUtf16(std::string_view bytes, ByteOrder order) {
    std::u16string text;
    text.reserve(bytes.size() / 2 + 1);
    for (; bytes.size() >= 2; bytes.remove_prefix(2)) {
        text.push_back(static_cast<char16_t>(unitAt(bytes, 2, order)));
    }
    if (!bytes.empty()) {
        text.push_back(kReplacementCharacter);
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

std::u16string textFromUtf32(std::string_view bytes, ByteOrder order) {
    std::u16string text;
    text.reserve(bytes.size() / 4 + 1);
    for (; bytes.size() >= 4; bytes.remove_prefix(4)) {
        appendUtf16(text, unitAt(bytes, 4, order));
    }
    if (!bytes.empty()) {
        text.push_back(kReplacementCharacter);
    }
    return text;
}

}  // namespace

std::optional<std::u16string> utf16FromMarkedBytes(std::string_view bytes) {
    // The shorter mark begins one of the longer ones.
    if (bytes.starts_with(kUtf32LittleEndianMark)) {
        return textFromUtf32(bytes.substr(4), ByteOrder::LittleEnd);
    }
    if (bytes.starts_with(kUtf32BigEndianMark)) {
        return textFromUtf32(bytes.substr(4), ByteOrder::BigEnd);
    }
    if (bytes.starts_with(kUtf16LittleEndianMark)) {
        return textFromUtf16(bytes.substr(2), ByteOrder::LittleEnd);
    }
    if (bytes.starts_with(kUtf16BigEndianMark)) {
        return textFromUtf16(bytes.substr(2), ByteOrder::BigEnd);
    }
    return std::nullopt;
}

std::u16string utf16FromBigEndianUtf16(std::string_view bytes) {
    return textFromUtf16(bytes, ByteOrder::BigEnd);
}

}  // namespace platform
