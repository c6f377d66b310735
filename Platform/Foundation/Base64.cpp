#include "Platform/Foundation/Base64.h"

#include <cstdint>

namespace platform {
namespace {

constexpr std::string_view kDigits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int digitValue(char c) {
    if (c >= 'A' && c <= 'Z') {
        return c - 'A';
    }
    if (c >= 'a' && c <= 'z') {
        return c - 'a' + 26;
    }
    if (c >= '0' && c <= '9') {
        return c - '0' + 52;
    }
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

}  // namespace

std::string bytesFromBase64(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::uint32_t group = 0;
    unsigned digits = 0;
    unsigned padding = 0;
    for (const char c : text) {
        if (!isBlank(c)) {
            padding = c == '=' ? padding + 1 : 0;
        }
        const int value = c == '=' ? 0 : digitValue(c);
        if (value < 0) {
            continue;
        }
        group = (group << 6) | static_cast<std::uint32_t>(value);
        if (++digits % 4 != 0) {
            continue;
        }
        bytes.push_back(static_cast<char>(group >> 16));
        if (padding < 2) {
            bytes.push_back(static_cast<char>(group >> 8));
        }
        if (padding < 1) {
            bytes.push_back(static_cast<char>(group));
        }
    }
    return bytes;
}

std::string base64FromBytes(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t present = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            const auto byte = k < present ? static_cast<unsigned char>(bytes[i + k]) : 0u;
            group = (group << 8) | byte;
        }
        for (std::size_t k = 0; k < 4; ++k) {
            const bool isDigit = k <= present;
            text.push_back(isDigit ? kDigits[(group >> (18 - 6 * k)) & 0x3F] : '=');
        }
    }
    return text;
}

}  // namespace platform
