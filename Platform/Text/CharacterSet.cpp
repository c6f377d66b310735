#include "Platform/Text/CharacterSet.h"

#include "Platform/Text/Modules/UnicodeModule.h"

namespace platform {

namespace {

bool isAsciiLetter(char32_t codePoint) {
    const char32_t lower = codePoint | 0x20;
    return lower >= U'a' && lower <= U'z';
}

}  // namespace

bool isLetter(char32_t codePoint) {
    return codePoint < 0x80 ? isAsciiLetter(codePoint)
                            : moduleFunctions<UnicodeFunctions>().isLetter(codePoint);
}

bool isBaseLetter(char32_t codePoint) {
    return codePoint < 0x80 ? isAsciiLetter(codePoint)
                            : moduleFunctions<UnicodeFunctions>().isBaseLetter(codePoint);
}

std::u16string_view stringByTrimmingWhitespaceAndNewlines(std::u16string_view string) {
    std::size_t begin = 0;
    while (begin < string.size() && isWhitespaceOrNewline(string[begin])) {
        ++begin;
    }
    std::size_t end = string.size();
    while (end > begin && isWhitespaceOrNewline(string[end - 1])) {
        --end;
    }
    return begin == end ? string.substr(0, 0) : string.substr(begin, end - begin);
}

}  // namespace platform
