// RTF cut into its pieces: groups, control words, escaped bytes and text.
//
// A view of bytes that must live as long as the tokenizer and its tokens. One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

enum class RtfTokenKind : std::uint8_t {
    Text,    ///< bytes that stand for themselves, without line ends
    Open,    ///< the start of a group
    Close,   ///< the end of a group
    Word,    ///< a backslash and letters, with a number behind them or not
    Symbol,  ///< a backslash and another character
    Byte,    ///< a byte in hexadecimal digits
    End      ///< the input's end, for ever
};

struct RtfToken {
    RtfTokenKind kind = RtfTokenKind::End;
    /// Whether a word has a number.
    bool hasParameter = false;
    /// Whether all bytes of a text are below 0x80.
    bool isAscii = true;
    /// A word's number, as near to it as 32 bits come; the value of a Byte.
    std::int32_t parameter = 0;
    /// rtfWordHash of a word.
    std::uint32_t hash = 0;
    /// The text, the letters of a word or the character of a symbol.
    std::string_view text;
};

/// The hash of a control word, one letter after the other.
inline constexpr std::uint32_t kRtfWordHashStart = 2166136261U;
[[nodiscard]] constexpr std::uint32_t rtfWordHash(std::uint32_t hash, char letter) {
    return (hash ^ static_cast<unsigned char>(letter)) * 16777619U;
}

/// Walks over the pieces in their order. Anything is RTF: there is no input that it refuses.
class RtfTokenizer {
public:
    explicit RtfTokenizer(std::string_view bytes)
        : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    /// Returns the next piece. Line ends and control characters other than tabs are none.
    [[nodiscard]] RtfToken next();

    /// Goes to the brace that ends the group which it is in, or to the input's end.
    void skipToGroupEnd();

    /// Leaves `count` bytes out, or as many as there are.
    void skipBytes(std::size_t count);

private:
    [[nodiscard]] RtfToken text();
    [[nodiscard]] RtfToken control();
    [[nodiscard]] RtfToken word();
    [[nodiscard]] RtfToken byte();

    const char* at_;
    const char* end_;
};

}  // namespace platform
