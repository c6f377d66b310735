// The scripts of characters, as far as languages are told apart by them.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {

/// Scripts that several languages share come first, those that one language owns behind them.
enum class Script : std::uint8_t {
    Latin,
    Cyrillic,
    Arabic,
    Devanagari,
    Bengali,
    Hebrew,
    Ethiopic,
    Han,
    Kana,
    Bopomofo,
    Hangul,
    Greek,
    Armenian,
    Georgian,
    Thai,
    Lao,
    Khmer,
    Myanmar,
    Tibetan,
    Gurmukhi,
    Gujarati,
    Oriya,
    Tamil,
    Telugu,
    Kannada,
    Malayalam,
    Sinhala,
    Cherokee,
    Mongolian,
    Unnamed,  ///< the platform names no language that is written in it
    Mark,     ///< belongs to the letter before it
    None,     ///< no letter
};

inline constexpr std::size_t kScriptCount = static_cast<std::size_t>(Script::None) + 1;
inline constexpr std::size_t kSharedScriptCount = static_cast<std::size_t>(Script::Ethiopic) + 1;

/// Returns the script of a letter or of a mark that only one script has, Script::Mark for marks of
/// many, and Script::None for all else: digits, signs, surrogates.
[[nodiscard]] Script scriptOf(char32_t codePoint) noexcept;

/// Whether a letter of the Latin or Cyrillic script is a capital.
[[nodiscard]] bool isCapital(char16_t letter) noexcept;

/// Returns the small letter for a letter of the Latin or Cyrillic script; other units as they are.
/// Letters of Romanian that are written with a cedilla instead of a comma get the comma, but for
/// s, which Turkish has, too.
[[nodiscard]] char16_t smallLetter(char16_t letter) noexcept;

}  // namespace platform
