// Comparison of names whose ASCII letters count the same in either case, whatever the locale.
//
// Bytes above 0x7F are compared as they are. Pure functions; any thread.

#pragma once

#include <algorithm>
#include <compare>
#include <string_view>

namespace platform {

/// The lower-case form of an ASCII capital; any other byte itself.
[[nodiscard]] constexpr char asciiLowercase(char unit) {
    return unit >= 'A' && unit <= 'Z' ? static_cast<char>(unit - 'A' + 'a') : unit;
}

/// Orders two names by their bytes, capitals as their lower-case forms.
[[nodiscard]] constexpr std::strong_ordering compareIgnoringAsciiCase(std::string_view first,
                                                                      std::string_view second) {
    const std::size_t shared = std::min(first.size(), second.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const auto left = static_cast<unsigned char>(asciiLowercase(first[i]));
        const auto right = static_cast<unsigned char>(asciiLowercase(second[i]));
        if (left != right) {
            return left <=> right;
        }
    }
    return first.size() <=> second.size();
}

/// Whether two names are the same but for the case of ASCII letters.
[[nodiscard]] constexpr bool equalIgnoringAsciiCase(std::string_view first,
                                                    std::string_view second) {
    return first.size() == second.size() && compareIgnoringAsciiCase(first, second) == 0;
}

}  // namespace platform
