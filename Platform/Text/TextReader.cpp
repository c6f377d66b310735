#include "Platform/Text/TextReader.h"

#include <algorithm>
#include <array>
#include <optional>
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
constexpr std::string_view kUtf32BigEndianMark = "\0\0\xFE\xFF"sv;
constexpr std::string_view kUtf32LittleEndianMark = "\xFF\xFE\0\0"sv;

/// Bytes that other formats begin with.
struct Signature {
    std::string_view start;
    const char* format;
};
constexpr std::array kSignatures = {
    Signature{"%PDF-"sv, "PDF"},
    Signature{"{\\rtf"sv, "RTF"},
    Signature{"rtfd\0\0\0\0"sv, "RTFD"},
};

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

/// The text of bytes that begin with a mark of UTF-16 or UTF-32; nothing for others.
std::optional<std::u16string> textAfterWideMark(std::string_view bytes) {
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

/// Whether text in bytes or UTF-16 begins, after white space, with `lowercase`, in any case.
template <class View>
bool beginsWith(View text, std::string_view lowercase) {
    const auto isBlank = [](auto unit) {
        return unit == ' ' || (unit >= 0x09 && unit <= 0x0D);
    };
    const auto start = std::find_if_not(text.begin(), text.end(), isBlank);
    const auto lower = [](auto unit) {
        return unit >= 'A' && unit <= 'Z' ? static_cast<decltype(unit)>(unit + 0x20) : unit;
    };
    return static_cast<std::size_t>(text.end() - start) >= lowercase.size() &&
           std::equal(lowercase.begin(), lowercase.end(), start, [&](char wanted, auto unit) {
               return lower(unit) == static_cast<decltype(unit)>(wanted);
           });
}

template <class View>
bool isHtml(View text) {
    return beginsWith(text, "<!doctype html") || beginsWith(text, "<html");
}

/// Whether `unit` is a control character that no text needs.
bool isStray(char16_t unit) {
    return unit < 0x20 && !(unit >= 0x07 && unit <= 0x0F) && unit != 0x1B && unit != 0x1A;
}

Fault notReadYet(std::string_view format) {
    return {FaultCode::Unsupported, std::string(format) + " is not read yet"};
}

Result<AttributedString> checkedText(std::u16string text) {
    if (isHtml(std::u16string_view(text))) {
        return notReadYet("HTML");
    }
    const auto strays = static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isStray));
    if (strays > text.size() / 100) {
        return Fault{FaultCode::Unsupported, "no text: " + std::to_string(strays) +
                                                 " control characters among " +
                                                 std::to_string(text.size()) + " units"};
    }
    return AttributedString(std::move(text));
}

}  // namespace

Result<AttributedString> attributedStringFromData(const Data& data) {
    std::string_view bytes = data.view();
    for (const Signature& signature : kSignatures) {
        if (bytes.starts_with(signature.start)) {
            return notReadYet(signature.format);
        }
    }
    if (auto text = textAfterWideMark(bytes)) {
        return checkedText(std::move(*text));
    }
    if (bytes.starts_with(kUtf8Mark)) {
        bytes.remove_prefix(kUtf8Mark.size());
    }
    if (isHtml(bytes)) {
        // Before the characters: a page may declare another encoding inside.
        return notReadYet("HTML");
    }
    auto text = utf16FromUtf8(bytes);
    if (!text) {
        return Fault{FaultCode::Unsupported, "text that is not UTF-8"};
    }
    return checkedText(std::move(*text));
}

}  // namespace platform
