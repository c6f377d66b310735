// The code points of the library's texts, which may be any numbers.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace platform {

/// Appends the code points of the library's UTF-8, in which surrogates may stand, too. What is cut
/// off at the end is left out.
inline void appendDecoded(std::string_view text, std::vector<char32_t>& codePoints) {
    codePoints.reserve(codePoints.size() + text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        const auto first = static_cast<unsigned char>(text[at]);
        const std::size_t more = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        if (more >= text.size() - at) {
            return;
        }
        char32_t codePoint = more == 0 ? first : first & (0x3FU >> more);
        for (std::size_t i = 1; i <= more; i++) {
            codePoint = (codePoint << 6U) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
        }
        codePoints.push_back(codePoint);
        at += more + 1;
    }
}

/// The same of UTF-16.
inline void appendDecoded(std::span<const unsigned short> units,
                          std::vector<char32_t>& codePoints) {
    const auto isHalf = [&](std::size_t at, unsigned first) {
        return at < units.size() && (units[at] & 0xFC00U) == first;
    };
    for (std::size_t i = 0; i < units.size(); i++) {
        char32_t codePoint = units[i];
        if (isHalf(i, 0xD800) && isHalf(i + 1, 0xDC00)) {
            i++;
            codePoint = 0x10000 + ((codePoint & 0x3FFU) << 10U) + (units[i] & 0x3FFU);
        }
        codePoints.push_back(codePoint);
    }
}

}  // namespace platform
