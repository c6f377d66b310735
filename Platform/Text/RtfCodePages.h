// Which code page the bytes of an RTF text are in, and their characters.
//
// One thread at a time.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/CodePageConverter.h"
#include "Platform/Text/SingleByteCodePages.h"

namespace platform {

/// The code page of a document that names none.
inline constexpr int kRtfDefaultCodePage = 1252;

/// Two that are fonts rather than encodings: bytes are places in a font of pictures, which become
/// private characters, or in the font Symbol, where they mean Greek letters and signs.
inline constexpr int kRtfPicturesCodePage = 42;
inline constexpr int kRtfSymbolCodePage = -1;

/// Whether text in the code page can be converted.
[[nodiscard]] bool isRtfCodePage(int number);

/// Returns the code page of a font's \fcharset; 0 for the document's.
[[nodiscard]] int rtfCodePageOfCharset(int charset);

/// The one of those two that a font is in, by its name; nothing for a font of letters.
[[nodiscard]] std::optional<int> rtfCodePageOfPictures(std::u16string_view fontName);

/// The character at a place of the font Symbol.
[[nodiscard]] char16_t rtfSymbol(std::uint8_t place);

/// Converts bytes, which may come one by one, to UTF-16.
///
/// Between the two bytes of a character may lie whatever is no text; even the code page may change.
class RtfDecoder {
public:
    /// What bytes are in from now on.
    ///
    /// Requires: isRtfCodePage.
    void setCodePage(int number);

    /// Whether nothing waits and bytes below 0x80 stand for themselves.
    [[nodiscard]] bool takesAsciiAsItIs() const { return page_.isAsciiItself && !isWaiting(); }

    /// Converts bytes; those of characters of several bytes may wait.
    void append(std::u16string& text, std::string_view bytes);

    /// Appends the characters that wait. Half a one still waits.
    void flush(std::u16string& text) {
        if (!pending_.empty()) {
            convert(text, BytesFollow::Yes);
        }
    }

    /// Appends all that waits, because what follows are no bytes: half a character is U+FFFD.
    void finish(std::u16string& text) {
        if (isWaiting()) {
            convert(text, BytesFollow::No);
        }
    }

private:
    /// A code page of one byte a character, of several where the upper half is empty.
    struct Page {
        int number = kRtfDefaultCodePage;
        std::u16string_view upperHalf = upperHalfOfCodePage(kRtfDefaultCodePage);
        bool isAsciiItself = true;

        [[nodiscard]] bool isMultiple() const { return upperHalf.empty() && isAsciiItself; }
    };
    struct Converter {
        int codePage;
        /// Whether a character may have more than two bytes.
        bool isLong;
        std::unique_ptr<CodePageConverter> converter;
    };

    [[nodiscard]] bool isWaiting() const { return isOpen_ || !pending_.empty(); }
    void appendSingle(std::u16string& text, std::string_view bytes) const;
    void wait(std::u16string& text, std::string_view bytes);
    void convert(std::u16string& text, BytesFollow follow);
    [[nodiscard]] Converter& converter();

    Page page_;
    /// The one before, which is often the next.
    Page otherPage_;

    /// Bytes that wait, and what they are in.
    std::string pending_;
    int pendingCodePage_ = 0;
    /// Whether the last of them begins a character of two.
    bool isHalf_ = false;
    /// Whether a converter may hold a part of a character.
    bool isOpen_ = false;
    std::vector<Converter> converters_;
};

}  // namespace platform
