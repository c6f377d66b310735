#include "Platform/Foundation/Unicode.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace platform {
namespace {

constexpr char32_t kInvalid = 0xFFFFFFFF;

bool isContinuation(unsigned char byte) {
    return (byte & 0xC0) == 0x80;
}

/// Decodes the form of several bytes that begins at `position`; moves past it, or past one byte
/// when it is not valid.
char32_t decodeLongForm(std::string_view text, std::size_t& position) {
    const auto byteAt = [&](std::size_t i) {
        return static_cast<unsigned char>(text[i]);
    };
    const unsigned char first = byteAt(position);
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (first < 0xC2 || first > 0xF4 || text.size() - position < length) {
        ++position;
        return kInvalid;
    }
    char32_t value = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = byteAt(position + i);
        if (!isContinuation(next)) {
            ++position;
            return kInvalid;
        }
        value = (value << 6) | (next & 0x3Fu);
    }
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    if (value < kSmallest[length] || value > 0x10FFFF || surrogate) {
        ++position;
        return kInvalid;
    }
    position += length;
    return value;
}

/// The number of bytes from `position` on that are ASCII, eight at a time.
std::size_t asciiRunLength(std::string_view text, std::size_t position) {
    const std::size_t start = position;
    while (text.size() - position >= sizeof(std::uint64_t)) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, text.data() + position, sizeof eight);
        if ((eight & 0x8080808080808080u) != 0) {
            break;
        }
        position += sizeof eight;
    }
    while (position < text.size() && static_cast<unsigned char>(text[position]) < 0x80) {
        ++position;
    }
    return position - start;
}

/// Converts; `onInvalid` tells whether to go on after a byte of no valid form.
template <class OnInvalid>
bool convert(std::string_view text, std::u16string& result, OnInvalid onInvalid) {
    // No form makes more units than it has bytes.
    result.resize(text.size());
    char16_t* out = result.data();
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t run = asciiRunLength(text, position);
        for (std::size_t i = 0; i < run; ++i) {
            *out++ = static_cast<unsigned char>(text[position + i]);
        }
        position += run;
        if (position == text.size()) {
            break;
        }
        const char32_t value = decodeLongForm(text, position);
        if (value == kInvalid) {
            if (!onInvalid()) {
                return false;
            }
            *out++ = kReplacementCharacter;
        } else if (value < 0x10000) {
            *out++ = static_cast<char16_t>(value);
        } else {
            *out++ = static_cast<char16_t>(0xD7C0 + (value >> 10));
            *out++ = static_cast<char16_t>(0xDC00 + (value & 0x3FF));
        }
    }
    result.resize(static_cast<std::size_t>(out - result.data()));
    return true;
}

char* writeUtf8(char* out, char32_t value) {
    if (value < 0x80) {
        *out++ = static_cast<char>(value);
    } else if (value < 0x800) {
        *out++ = static_cast<char>(0xC0 | (value >> 6));
        *out++ = static_cast<char>(0x80 | (value & 0x3F));
    } else if (value < 0x10000) {
        *out++ = static_cast<char>(0xE0 | (value >> 12));
        *out++ = static_cast<char>(0x80 | ((value >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (value & 0x3F));
    } else {
        *out++ = static_cast<char>(0xF0 | (value >> 18));
        *out++ = static_cast<char>(0x80 | ((value >> 12) & 0x3F));
        *out++ = static_cast<char>(0x80 | ((value >> 6) & 0x3F));
        *out++ = static_cast<char>(0x80 | (value & 0x3F));
    }
    return out;
}

/// The code point at `position`, which moves past it.
char32_t codePointAt(std::u16string_view text, std::size_t& position) {
    const char16_t unit = text[position++];
    if (isHighSurrogate(unit) && position < text.size() && isLowSurrogate(text[position])) {
        const char16_t low = text[position++];
        return 0x10000 + ((char32_t{unit} & 0x3FF) << 10) + (low & 0x3FF);
    }
    const bool lone = isHighSurrogate(unit) || isLowSurrogate(unit);
    return lone ? kReplacementCharacter : unit;
}

std::size_t utf8Length(std::u16string_view text) {
    std::size_t length = text.size();
    for (const char16_t unit : text) {
        length += (unit > 0x7F ? 1u : 0u) + (unit > 0x7FF ? 1u : 0u);
    }
    std::size_t pairs = 0;
    for (std::size_t i = 1; i < text.size(); ++i) {
        pairs += isHighSurrogate(text[i - 1]) && isLowSurrogate(text[i]) ? 1u : 0u;
    }
    // Each half of a pair was taken for a unit of three bytes.
    return length - 2 * pairs;
}

/// The number of units from `position` on that are ASCII, four at a time.
std::size_t asciiRunLength(std::u16string_view text, std::size_t position) {
    const std::size_t start = position;
    while (text.size() - position >= sizeof(std::uint64_t) / sizeof(char16_t)) {
        std::uint64_t four = 0;
        std::memcpy(&four, text.data() + position, sizeof four);
        if ((four & 0xFF80FF80FF80FF80u) != 0) {
            break;
        }
        position += sizeof four / sizeof(char16_t);
    }
    while (position < text.size() && text[position] < 0x80) {
        ++position;
    }
    return position - start;
}

}  // namespace

std::optional<std::u16string> utf16FromUtf8(std::string_view text) {
    std::u16string result;
    if (!convert(text, result, [] { return false; })) {
        return std::nullopt;
    }
    return result;
}

std::u16string utf16FromUtf8Lossy(std::string_view text) {
    std::u16string result;
    convert(text, result, [] { return true; });
    return result;
}

std::string utf8FromUtf16(std::u16string_view text) {
    std::string result(utf8Length(text), '\0');
    char* out = result.data();
    std::size_t position = 0;
    while (position < text.size()) {
        const std::size_t run = asciiRunLength(text, position);
        out = std::transform(text.begin() + position, text.begin() + position + run, out,
                             [](char16_t unit) { return static_cast<char>(unit); });
        position += run;
        if (position < text.size()) {
            out = writeUtf8(out, codePointAt(text, position));
        }
    }
    return result;
}

std::size_t utf8FormLength(std::string_view text) noexcept {
    if (text.empty() || static_cast<unsigned char>(text.front()) < 0x80) {
        return text.empty() ? 0 : 1;
    }
    std::size_t length = 0;
    return decodeLongForm(text, length) != kInvalid ? length : 0;
}

void appendUtf8(std::string& text, char32_t codePoint) {
    char form[4];
    text.append(form, writeUtf8(form, codePoint));
}

std::u16string utf16FromAscii(std::string_view ascii) {
    return std::u16string(ascii.begin(), ascii.end());
}

bool isAscii(std::string_view bytes) {
    return asciiRunLength(bytes, 0) == bytes.size();
}

}  // namespace platform
