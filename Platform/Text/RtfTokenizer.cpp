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

constexpr bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// The value of a hexadecimal digit; negative when it is none.
constexpr int hexValue(char byte) {
    if (isDigit(byte)) {
        return byte - '0';
    }
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

constexpr std::array<std::int16_t, 256> hexTable() {
    std::array<std::int16_t, 256> values{};
    for (std::size_t byte = 0; byte < values.size(); ++byte) {
        values[byte] = static_cast<std::int16_t>(hexValue(static_cast<char>(byte)));
    }
    return values;
}

constexpr auto kHexValues = hexTable();

/// The value of two hexadecimal digits behind a backslash and an apostrophe; negative when `at`
/// does not stand before such.
int escapedByte(const char* at, const char* end) {
    constexpr std::ptrdiff_t kLength = 4;
    if (end - at < kLength || at[0] != '\\' || at[1] != '\'') {
        return -1;
    }
    const int upper = kHexValues[static_cast<unsigned char>(at[2])];
    const int lower = kHexValues[static_cast<unsigned char>(at[3])];
    return upper < 0 || lower < 0 ? -1 : upper * 16 + lower;
}

}  // namespace

const RtfToken& RtfTokenizer::next() {
    for (; at_ != end_; ++at_) {
        switch (classOf(*at_)) {
            case ByteClass::Ignored:
                break;
            case ByteClass::Text:
                readText();
                return token_;
            case ByteClass::Open:
                ++at_;
                set(RtfTokenKind::Open, {});
                return token_;
            case ByteClass::Close:
                ++at_;
                set(RtfTokenKind::Close, {});
                return token_;
            case ByteClass::Backslash:
                readControl();
                return token_;
        }
    }
    set(RtfTokenKind::End, {});
    return token_;
}

void RtfTokenizer::readText() {
    const char* const start = at_;
    unsigned bits = 0;
    do {
        bits |= static_cast<unsigned char>(*at_++);
    } while (at_ != end_ && classOf(*at_) == ByteClass::Text);
    token_.isAscii = bits < 0x80;
    set(RtfTokenKind::Text, {start, static_cast<std::size_t>(at_ - start)});
}

void RtfTokenizer::readControl() {
    if (end_ - at_ < 2) {
        at_ = end_;
        set(RtfTokenKind::End, {});
    } else if (isLetter(at_[1])) {
        ++at_;
        readWord();
    } else if (at_[1] == '\'') {
        readEscaped();
    } else {
        set(RtfTokenKind::Symbol, {at_ + 1, 1});
        at_ += 2;
    }
}

void RtfTokenizer::readWord() {
    const char* at = at_;
    std::uint32_t hash = kRtfWordHashStart;
    for (; at != end_ && isLetter(*at); ++at) {
        hash = rtfWordHash(hash, *at);
    }
    token_.hash = hash;
    set(RtfTokenKind::Word, {at_, static_cast<std::size_t>(at - at_)});
    const bool isNegative = end_ - at >= 2 && *at == '-' && isDigit(at[1]);
    at += isNegative ? 1 : 0;
    const char* const digits = at;
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    std::int64_t number = 0;
    for (; at != end_ && isDigit(*at); ++at) {
        number = number * 10 + (*at - '0');
        if (number > kMost) {
            number = kMost;
        }
    }
    token_.hasParameter = at != digits;
    token_.parameter = static_cast<std::int32_t>(isNegative ? -number : number);
    // One blank ends the word and is no text.
    at_ = at + (at != end_ && *at == ' ' ? 1 : 0);
}

void RtfTokenizer::readEscaped() {
    std::size_t count = 0;
    unsigned bits = 0;
    int byte = escapedByte(at_, end_);
    while ((byte >= 0x20 || byte == '\t') && count < kMostEscaped) {
        bits |= static_cast<unsigned>(byte);
        escaped_[count++] = static_cast<char>(byte);
        at_ += 4;
        byte = escapedByte(at_, end_);
    }
    if (count != 0) {
        token_.isAscii = bits < 0x80;
        set(RtfTokenKind::Text, {escaped_.data(), count});
        return;
    }
    // A control character, or half a byte, which is left out like a symbol that nobody knows.
    escaped_[0] = static_cast<char>(byte >= 0 ? byte : '\'');
    set(RtfTokenKind::Symbol, {escaped_.data(), 1});
    at_ += byte >= 0 ? 4 : 2;
    at_ += byte < 0 && at_ != end_ && hexValue(*at_) >= 0 ? 1 : 0;
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
                    readWord();
                    skipBytes(token_.text == "bin" && token_.parameter > 0
                                  ? static_cast<std::size_t>(token_.parameter)
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
