// How likely a decoded text is one that people write, judged by its letters and what stands beside
// them: most wrong encodings show in capitals behind small letters, signs inside of words, letters
// of two scripts in one.
//
// Counted as a cost in nats, the negative natural logarithm of a probability; the less, the
// likelier. Nothing is known here of languages. Pure functions; any thread at once.

#pragma once

#include <string_view>

namespace platform {

/// What a character of ASCII costs, whatever it is: all encodings have it.
inline constexpr float kAsciiCost = 3;

/// Returns the cost of `text`, which an encoding of bytes has been decoded to.
[[nodiscard]] float alphabetCost(std::u16string_view text);

/// Whether a sign beyond ASCII is one that texts often have: punctuation, and marks such as those
/// of money, rights, squares and halves.
[[nodiscard]] bool isCommonSign(char16_t unit);

/// Whether it is one that may stand between letters of a word.
[[nodiscard]] bool isSignOfWords(char16_t unit);

}  // namespace platform
