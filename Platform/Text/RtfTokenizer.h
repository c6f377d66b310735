// RTF cut into its pieces: groups, control words, escaped bytes and text.
//
// A view of bytes that must live as long as the tokenizer and its tokens. One thread at a time.

#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

enum class RtfTokenKind : std::uint8_t {
    Text,    ///< bytes of text, without line ends
    Open,    ///< the start of a group
    Close,   ///< the end of a group
    Word,    ///< a backslash and letters, with a number behind them or not
    Symbol,  ///< a backslash and another character, or a control character in hexadecimal digits
    End      ///< the input's end, for ever
};

/// A piece, valid until the next.
struct RtfToken {
    RtfTokenKind kind = RtfTokenKind::End;
    /// Whether a word has a number.
    bool hasParameter = false;
    /// Whether all bytes of a text are below 0x80.
    bool isAscii = true;
    /// A word's number, as near to it as 32 bits come; 0 when it has none.
    std::int32_t parameter = 0;
    /// rtfWordHash of a word.
    std::uint32_t hash = 0;
    /// The text, the letters of a word or the character of a symbol.
    std::string_view text;
};

/// The hash of a control word, one letter after the other. Its upper bits are as good as its lower
/// ones only after a multiplication.
inline constexpr std::uint32_t kRtfWordHashStart = 0;
[[nodiscard]] constexpr std::uint32_t rtfWordHash(std::uint32_t hash, char letter) {
    return std::rotl(hash, 5) ^ static_cast<unsigned char>(letter);
}

/// Walks over the pieces in their order. Anything is RTF: there is no input that it refuses.
class RtfTokenizer {
public:
    explicit RtfTokenizer(std::string_view bytes)
        : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    RtfTokenizer(const RtfTokenizer&) = delete;
    RtfTokenizer& operator=(const RtfTokenizer&) = delete;

    /// Returns the next piece. Line ends and control characters other than tabs are none.
    ///
    /// Bytes in hexadecimal digits are text; those that follow each other come together.
    [[nodiscard]] const RtfToken& next();

    /// Goes to the brace that ends the group which it is in, or to the input's end.
    void skipToGroupEnd();

    /// Leaves `count` bytes out, or as many as there are.
    void skipBytes(std::size_t count);

private:
    static constexpr std::size_t kMostEscaped = 64;

    void readText();
    void readControl();
    void readWord();
    void readEscaped();
    void set(RtfTokenKind kind, std::string_view text) {
        token_.kind = kind;
        token_.text = text;
    }

    const char* at_;
    const char* end_;
    // Kept here because copies of it take longer than it does to make one.
    RtfToken token_;
    std::array<char, kMostEscaped> escaped_;
};

}  // namespace platform
