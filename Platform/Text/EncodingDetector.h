// Guesses which encoding of bytes a text is in, where nothing tells it and it is no sound UTF-8.
//
// Every encoding reads the bytes as some text. The likeliest of these texts is looked for: by how
// its letters stand together (AlphabetCost.h, DoubleByteCost.h), and by how much its words speak
// for a language (LanguageScores.h). A guess needs a few words; of fewer, the commoner encoding is
// taken. Pure functions; any thread at once.

#pragma once

#include <string>
#include <string_view>

namespace platform {

// Two names that the Unicode library is not asked for: UTF-8 with damage, and the Korean code page
// 1361.
inline constexpr char kUtf8Name[] = "utf-8";
inline constexpr char kJohabName[] = "johab";

/// Returns the name of the likeliest encoding; windows-1252 when nothing speaks for another.
///
/// At most 4,096 bytes are looked at, those around the first bytes beyond ASCII; finding them takes
/// time that is linear in the bytes.
[[nodiscard]] const char* likeliestEncoding(std::string_view bytes);

/// Returns the text of `bytes` in an encoding, with U+FFFD for what is no character.
///
/// Requires: `name` is what likeliestEncoding has answered, or one of the names above.
[[nodiscard]] std::u16string textInEncoding(std::string_view bytes, const char* name);

}  // namespace platform
