#include "Platform/CoreFoundation/StringCoding.h"

#include <cstring>

namespace platform::cf {
namespace {

constexpr bool isHighSurrogate(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
constexpr bool isLowSurrogate(char32_t c) { return c >= 0xDC00 && c < 0xE000; }
constexpr bool isSurrogate(char32_t c) { return c >= 0xD800 && c < 0xE000; }

/// Returns how many bytes at the start of `text` are ASCII for certain, a multiple of eight.
std::size_t asciiWords(std::string_view text) noexcept {
    std::size_t at = 0;
    for (; at + 8 <= text.size(); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, 8);
        if ((word & 0x8080808080808080u) != 0) {
            break;
        }
    }
    return at;
}

/// How a lead byte begins a character: its length, its own bits, the least value that needs them.
struct Lead {
    std::size_t length;
    char32_t bits;
    char32_t least;
};

Lead leadOf(unsigned char byte) noexcept {
    if (byte < 0x80) {
        return {1, byte, 0};
    }
    if (byte >= 0xC2 && byte < 0xE0) {
        return {2, byte & 0x1Fu, 0x80};
    }
    if (byte >= 0xE0 && byte < 0xF0) {
        return {3, byte & 0x0Fu, 0x800};
    }
    if (byte >= 0xF0 && byte < 0xF5) {
        return {4, byte & 0x07u, 0x10000};
    }
    return {0, 0, 0};
}

/// Takes the first character off `utf8`, which is not empty; nothing when it is invalid.
std::optional<char32_t> takeCharacter(std::string_view& utf8) noexcept {
    const Lead lead = leadOf(static_cast<unsigned char>(utf8[0]));
    if (lead.length == 0 || lead.length > utf8.size()) {
        return std::nullopt;
    }
    char32_t character = lead.bits;
    for (std::size_t i = 1; i < lead.length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if ((byte & 0xC0u) != 0x80u) {
            return std::nullopt;
        }
        character = (character << 6) | (byte & 0x3Fu);
    }
    if (character < lead.least || character > 0x10FFFF || isSurrogate(character)) {
        return std::nullopt;
    }
    utf8.remove_prefix(lead.length);
    return character;
}

/// The character at the start of `units`; a surrogate for a lone one.
char32_t characterAt(std::u16string_view units) noexcept {
    const char32_t first = units[0];
    if (isHighSurrogate(first) && units.size() > 1 && isLowSurrogate(units[1])) {
        return 0x10000 + ((first - 0xD800) << 10) + (units[1] - 0xDC00);
    }
    return first;
}

std::uint8_t low(char32_t value) noexcept { return static_cast<std::uint8_t>(value & 0xFF); }
std::uint8_t trail(char32_t value) noexcept { return low(0x80 | (value & 0x3F)); }

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
    return EncodedCharacter{
        {low(0xF0 | (c >> 18)), trail(c >> 12), trail(c >> 6), trail(c)}, 4, 2};
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

bool isAscii(std::string_view text) noexcept {
    text.remove_prefix(asciiWords(text));
    unsigned char all = 0;
    for (std::size_t i = 0; i < text.size() && i < 8; ++i) {
        all |= static_cast<unsigned char>(text[i]);
    }
    return all < 0x80;
}

bool isAscii(std::u16string_view text) noexcept {
    constexpr std::size_t kBlock = 256;
    while (!text.empty()) {
        const std::u16string_view block = text.substr(0, kBlock);
        unsigned all = 0;
        for (const char16_t unit : block) {
            all |= unit;
        }
        if (all >= 0x80) {
            return false;
        }
        text.remove_prefix(block.size());
    }
    return true;
}

std::optional<std::size_t> unitsOfUtf8(std::string_view utf8) noexcept {
    std::size_t units = 0;
    while (!utf8.empty()) {
        const std::size_t ascii = asciiWords(utf8);
        units += ascii;
        utf8.remove_prefix(ascii);
        // The rest of the word that is not all ASCII, before the next attempt at whole words.
        for (int i = 0; i < 8 && !utf8.empty(); ++i) {
            const std::optional<char32_t> character = takeCharacter(utf8);
            if (!character) {
                return std::nullopt;
            }
            units += *character >= 0x10000 ? 2 : 1;
        }
    }
    return units;
}

void decodeUtf8(std::string_view utf8, char16_t* units) noexcept {
    while (!utf8.empty()) {
        const std::optional<char32_t> character = takeCharacter(utf8);
        if (!character) {
            return;
        }
        if (*character >= 0x10000) {
            *units++ = static_cast<char16_t>(0xD800 + ((*character - 0x10000) >> 10));
            *units++ = static_cast<char16_t>(0xDC00 + (*character & 0x3FF));
        } else {
            *units++ = static_cast<char16_t>(*character);
        }
    }
}

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
