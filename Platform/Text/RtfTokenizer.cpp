#include "Platform/Text/RtfTokenizer.h"

#include <algorithm>
#include <array>
#include <limits>

namespace platform {
namespace {

enum class ByteClass : std::uint8_t { Text, Ignored, Open, Close, Backslash };

constexpr std::array<ByteClass, 256> classTable() {
    std::array<ByteClass, 256> classes{};
    for (std::size_t control = 0; control < 0x20; ++control) {
        classes[control] = control == '\t' ? ByteClass::Text : ByteClass::Ignored;
    }
    classes['{'] = ByteClass::Open;
    classes['}'] = ByteClass::Close;
    classes['\\'] = ByteClass::Backslash;
    return classes;
}

constexpr auto kClasses = classTable();

ByteClass classOf(char byte) {
    return kClasses[static_cast<unsigned char>(byte)];
}

bool isLetter(char byte) {
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'z';
}

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// The value of a hexadecimal digit; negative when it is none.
int hexValue(char byte) {
    if (isDigit(byte)) {
        return byte - '0';
    }
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

}  // namespace

RtfToken RtfTokenizer::next() {
    for (; at_ != end_; ++at_) {
        switch (classOf(*at_)) {
            case ByteClass::Ignored:
                break;
            case ByteClass::Text:
                return text();
            case ByteClass::Open:
                ++at_;
                return {.kind = RtfTokenKind::Open, .text = {}};
            case ByteClass::Close:
                ++at_;
                return {.kind = RtfTokenKind::Close, .text = {}};
            case ByteClass::Backslash:
                if (++at_ == end_) {
                    return {};
                }
                return control();
        }
    }
    return {};
}

RtfToken RtfTokenizer::text() {
    const char* const start = at_;
    unsigned bits = 0;
    do {
        bits |= static_cast<unsigned char>(*at_++);
    } while (at_ != end_ && classOf(*at_) == ByteClass::Text);
    return {.kind = RtfTokenKind::Text,
            .isAscii = bits < 0x80,
            .text = {start, static_cast<std::size_t>(at_ - start)}};
}

RtfToken RtfTokenizer::control() {
    if (isLetter(*at_)) {
        return word();
    }
    if (*at_ == '\'') {
        return byte();
    }
    return {.kind = RtfTokenKind::Symbol, .text = {at_++, 1}};
}

RtfToken RtfTokenizer::word() {
    RtfToken token{.kind = RtfTokenKind::Word, .hash = kRtfWordHashStart, .text = {}};
    const char* const start = at_;
    for (; at_ != end_ && isLetter(*at_); ++at_) {
        token.hash = rtfWordHash(token.hash, *at_);
    }
    token.text = {start, static_cast<std::size_t>(at_ - start)};
    const bool isNegative = at_ != end_ && *at_ == '-';
    if (isNegative && (end_ - at_ < 2 || !isDigit(at_[1]))) {
        return token;
    }
    at_ += isNegative ? 1 : 0;
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    for (; at_ != end_ && isDigit(*at_); ++at_) {
        token.hasParameter = true;
        number = std::min(number * 10 + (*at_ - '0'), kMost);
    }
    token.parameter = static_cast<std::int32_t>(isNegative ? -number : number);
    // One blank ends the word and is no text.
    at_ += at_ != end_ && *at_ == ' ' ? 1 : 0;
    return token;
}

RtfToken RtfTokenizer::byte() {
    ++at_;
    int value = 0;
    for (int digits = 0; digits < 2; ++digits) {
        const int digit = at_ != end_ ? hexValue(*at_) : -1;
        if (digit < 0) {
            // Half a byte is nothing, like a symbol that nobody knows.
            return {.kind = RtfTokenKind::Symbol, .text = "'"};
        }
        value = value * 16 + digit;
        ++at_;
    }
    return {.kind = RtfTokenKind::Byte, .parameter = value, .text = {}};
}

void RtfTokenizer::skipToGroupEnd() {
    std::size_t depth = 0;
    while (at_ != end_) {
        switch (classOf(*at_)) {
            case ByteClass::Open:
                ++depth;
                break;
            case ByteClass::Close:
                if (depth == 0) {
                    return;
                }
                --depth;
                break;
            case ByteClass::Backslash: {
                ++at_;
                if (at_ == end_) {
                    return;
                }
                // Raw bytes may hold braces.
                if (*at_ == 'b') {
                    const RtfToken binary = word();
                    skipBytes(binary.text == "bin" && binary.parameter > 0
                                  ? static_cast<std::size_t>(binary.parameter)
                                  : 0);
                    continue;
                }
                break;
            }
            default:
                break;
        }
        ++at_;
    }
}

void RtfTokenizer::skipBytes(std::size_t count) {
    at_ += std::min(count, static_cast<std::size_t>(end_ - at_));
}

}  // namespace platform
