// Which Han characters only one of the Chinese scripts has, and which only Japanese.
//
// A constant table that the build makes (Packaging/generate/HanTables.h); any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

/// Where a character is at home.
enum class HanForm : std::uint8_t { Common, Traditional, Simplified, Japanese };

inline constexpr std::size_t kHanFormCount = 4;

inline constexpr char16_t kFirstHan = 0x4E00;
inline constexpr std::size_t kHanCount = 0x5200;

/// Four characters a byte, from the lowest bits up.
extern const std::uint8_t kHanForms[kHanCount / 4];

/// Returns the form of a character; one beyond the block U+4E00 is rare and counts as common.
[[nodiscard]] inline HanForm hanForm(char32_t character) noexcept {
    const std::size_t i = character - kFirstHan;
    return i < kHanCount ? static_cast<HanForm>(kHanForms[i / 4] >> (i % 4 * 2) & 3)
                         : HanForm::Common;
}

}  // namespace platform
