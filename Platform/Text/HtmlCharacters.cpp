#include "Platform/Text/HtmlCharacters.h"

#include <algorithm>
#include <array>

namespace platform {
namespace {

constexpr char32_t kFirstOfTwo = 0x10000;

/// Decodes the form at the start and takes it off.
char32_t takeCodePoint(std::string_view& utf8) {
    const auto byteAt = [&](std::size_t i) {
        return i < utf8.size() ? static_cast<unsigned char>(utf8[i]) : 0U;
    };
    const unsigned first = byteAt(0);
    const std::size_t size = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t codePoint = size == 1 ? first : first & (0xFFU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i) {
        codePoint = (codePoint << 6U) | (byteAt(i) & 0x3FU);
    }
    utf8.remove_prefix(std::min(size, utf8.size()));
    return codePoint;
}

char16_t highHalfOf(char32_t codePoint) {
    return static_cast<char16_t>(0xD800U + ((codePoint - kFirstOfTwo) >> 10U));
}

char16_t* writeCharacter(std::string_view& utf8, char16_t* unit) {
    const char32_t codePoint = takeCodePoint(utf8);
    if (codePoint < kFirstOfTwo) {
        *unit++ = static_cast<char16_t>(codePoint);
    } else {
        *unit++ = highHalfOf(codePoint);
        *unit++ = static_cast<char16_t>(0xDC00U + (codePoint & 0x3FFU));
    }
    return unit;
}

constexpr auto kAsciiOfWords = [] {
    std::array<bool, 256> signs{};
    for (std::size_t sign = 0; sign < 0x80; ++sign) {
        signs[sign] = !isHtmlBlank(static_cast<char>(sign));
    }
    return signs;
}();

}  // namespace

char16_t firstUnitOf(std::string_view utf8) {
    const char32_t codePoint = takeCodePoint(utf8);
    return codePoint < kFirstOfTwo ? static_cast<char16_t>(codePoint) : highHalfOf(codePoint);
}

char16_t* writeCharacters(std::string_view utf8, char16_t* unit) {
    while (!utf8.empty()) {
        unit = writeCharacter(utf8, unit);
    }
    return unit;
}

char16_t* writeWords(std::string_view& utf8, char16_t* unit) {
    const auto isOfWord = [](char byte) {
        return kAsciiOfWords[static_cast<unsigned char>(byte)];
    };
    while (!utf8.empty() && !isHtmlBlank(utf8.front())) {
        if (!isOfWord(utf8.front())) {
            unit = writeCharacter(utf8, unit);
            continue;
        }
        const char* at = utf8.data();
        const char* const last = at + utf8.size() - 1;
        while (at != last && (isOfWord(*at) || (*at == ' ' && isOfWord(at[1])))) {
            *unit++ = static_cast<unsigned char>(*at++);
        }
        if (isOfWord(*at)) {
            *unit++ = static_cast<unsigned char>(*at++);
        }
        utf8.remove_prefix(static_cast<std::size_t>(at - utf8.data()));
    }
    return unit;
}

}  // namespace platform
