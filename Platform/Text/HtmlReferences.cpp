#include "Platform/Text/HtmlReferences.h"

#include <algorithm>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/HtmlReferenceNames.h"
#include "Platform/Text/SingleByteCodePages.h"

namespace platform {
namespace {

constexpr std::size_t kLongestName = 31;
constexpr char32_t kLastCodePoint = 0x10FFFF;

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool isLetterOrDigit(char byte) {
    return isDigit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}

/// The value of a digit; nothing below `base` when it is none.
unsigned digitValue(char byte) {
    constexpr unsigned kNone = 99;
    constexpr unsigned kTen = 10;
    if (isDigit(byte)) {
        return static_cast<unsigned>(byte - '0');
    }
    const char letter = static_cast<char>(byte | 0x20);
    return letter >= 'a' && letter <= 'f' ? static_cast<unsigned>(letter - 'a') + kTen : kNone;
}

char32_t characterOfNumber(char32_t number) {
    constexpr int kWindowsLatin = 1252;
    constexpr char32_t kFirstUpper = 0x80;
    constexpr char32_t kBehindControls = 0xA0;
    const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
    if (number == 0 || number > kLastCodePoint || isSurrogate) {
        return kReplacementCharacter;
    }
    if (number >= kFirstUpper && number < kBehindControls) {
        const char16_t character = upperHalfOfCodePage(kWindowsLatin)[number - kFirstUpper];
        return character == kReplacementCharacter ? number : character;
    }
    return number;
}

std::size_t readNumber(std::string_view text, std::string& characters) {
    const bool isHexadecimal = text.size() > 2 && (text[2] == 'x' || text[2] == 'X');
    const unsigned base = isHexadecimal ? 16 : 10;
    const std::size_t start = isHexadecimal ? 3 : 2;
    std::size_t at = start;
    char32_t number = 0;
    for (; at < text.size() && digitValue(text[at]) < base; ++at) {
        number = std::min<char32_t>(number * base + digitValue(text[at]), kLastCodePoint + 1);
    }
    if (at == start) {
        return 0;
    }
    appendUtf8(characters, characterOfNumber(number));
    return at + (at < text.size() && text[at] == ';' ? 1 : 0);
}

std::size_t readOldName(std::string_view name, std::string_view text, HtmlReferencePlace place,
                        std::string& characters) {
    for (std::size_t size = std::min(name.size(), kLongestOldHtmlName); size > 1; --size) {
        const std::u16string_view found = charactersOfOldHtmlName(name.substr(0, size));
        if (found.empty()) {
            continue;
        }
        const char next = text.size() > size + 1 ? text[size + 1] : '\0';
        if (place == HtmlReferencePlace::Attribute && (next == '=' || isLetterOrDigit(next))) {
            return 0;
        }
        characters += utf8FromUtf16(found);
        return size + 1;
    }
    return 0;
}

}  // namespace

std::size_t readHtmlReference(std::string_view text, HtmlReferencePlace place,
                              std::string& characters) {
    if (text.size() > 1 && text[1] == '#') {
        return readNumber(text, characters);
    }
    const std::string_view letters = text.substr(1, kLongestName);
    const auto* const end = std::find_if_not(letters.begin(), letters.end(), isLetterOrDigit);
    const std::string_view name =
        letters.substr(0, static_cast<std::size_t>(end - letters.begin()));
    const std::size_t size = name.size() + 1;
    if (text.size() > size && text[size] == ';') {
        const std::u16string_view found = charactersOfHtmlName(name);
        if (!found.empty()) {
            characters += utf8FromUtf16(found);
            return size + 1;
        }
    }
    return readOldName(name, text, place, characters);
}

}  // namespace platform
