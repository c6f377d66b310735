#include "Platform/CoreFoundation/StringCoding.h"

#include "Platform/Foundation/Unicode.h"

namespace platform::cf {
namespace {

constexpr bool isSurrogate(char32_t c) {
    return c >= 0xD800 && c < 0xE000;
}

/// The character at the start of `units`; a surrogate for a lone one.
char32_t characterAt(std::u16string_view units) noexcept {
    const char32_t first = units[0];
    if (isHighSurrogate(units[0]) && units.size() > 1 && isLowSurrogate(units[1])) {
        return 0x10000 + ((first - 0xD800) << 10) + (units[1] - 0xDC00u);
    }
    return first;
}

std::uint8_t low(char32_t value) noexcept {
    return static_cast<std::uint8_t>(value & 0xFF);
}
std::uint8_t trail(char32_t value) noexcept {
    return low(0x80 | (value & 0x3F));
}

std::optional<EncodedCharacter> encodeUtf8(std::u16string_view units) {
    const char32_t c = characterAt(units);
    if (c < 0x80) {
        return EncodedCharacter{{low(c)}, 1, 1};
    }
    if (c < 0x800) {
        return EncodedCharacter{{low(0xC0 | (c >> 6)), trail(c)}, 2, 1};
    }
    if (isSurrogate(c)) {
        return std::nullopt;
    }
    if (c < 0x10000) {
        return EncodedCharacter{{low(0xE0 | (c >> 12)), trail(c >> 6), trail(c)}, 3, 1};
    }
    return EncodedCharacter{{low(0xF0 | (c >> 18)), trail(c >> 12), trail(c >> 6), trail(c)}, 4, 2};
}

std::optional<EncodedCharacter> encodeAscii(std::u16string_view units) {
    if (units[0] >= 0x80) {
        return std::nullopt;
    }
    return EncodedCharacter{{low(units[0])}, 1, 1};
}

std::optional<EncodedCharacter> encodeBigEndian(std::u16string_view units) {
    return EncodedCharacter{{low(units[0] >> 8), low(units[0])}, 2, 1};
}

std::optional<EncodedCharacter> encodeLittleEndian(std::u16string_view units) {
    return EncodedCharacter{{low(units[0]), low(units[0] >> 8)}, 2, 1};
}

}  // namespace

CharacterEncoder encoderOf(CFStringEncoding encoding) noexcept {
    constexpr bool kLittle = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;
    switch (encoding) {
        case kCFStringEncodingUTF8:
            return encodeUtf8;
        case kCFStringEncodingASCII:
            return encodeAscii;
        case kCFStringEncodingUTF16BE:
            return encodeBigEndian;
        case kCFStringEncodingUTF16LE:
            return encodeLittleEndian;
        case kCFStringEncodingUTF16:
            return kLittle ? encodeLittleEndian : encodeBigEndian;
        default:
            return nullptr;
    }
}

std::size_t maxBytesPerUnit(CFStringEncoding encoding) noexcept {
    if (encoderOf(encoding) == nullptr) {
        return 0;
    }
    return encoding == kCFStringEncodingUTF8 ? 3 : extendsAscii(encoding) ? 1 : 2;
}

bool extendsAscii(CFStringEncoding encoding) noexcept {
    return encoding == kCFStringEncodingUTF8 || encoding == kCFStringEncodingASCII;
}

}  // namespace platform::cf
