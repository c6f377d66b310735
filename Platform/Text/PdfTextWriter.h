// Writes the lines of a PDF page as one text.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/PdfLineText.h"
#include "Platform/Text/PdfWords.h"

namespace platform {

/// Puts lines together to paragraphs, and characters to those that Unicode would rather have.
class PdfTextWriter {
public:
    explicit PdfTextWriter(std::span<const PdfFont> fonts);

    /// Writes a line that begins a paragraph, or goes on with the last one. The line must stay
    /// until the next one is written.
    void begin(const PdfLineText& line);
    void goOn(const PdfLineText& line);

    /// Ends the page and returns its text. The writer must not be used any more.
    [[nodiscard]] AttributedString finish();

private:
    void write(const PdfLineText& line);
    void append(char32_t character, std::uint32_t font);
    void appendPlainForm(char32_t character, std::uint32_t font);
    void appendUnits(std::u16string_view units, std::uint32_t font);
    /// What follows is in this font.
    void useFont(std::uint32_t font);
    void endRun();
    /// Joins a mark with the letter before it; whether they make one character.
    bool compose(char32_t mark);

    /// The attributes of each font.
    std::vector<Attributes> attributes_;
    std::u16string text_;
    std::vector<AttributeRun> runs_;
    /// Where the run begins that is being written, and its font.
    std::size_t runStart_ = 0;
    std::uint32_t font_ = 0;
    std::span<const PdfCharacter> above_;
    bool endsInBrokenWord_ = false;
};

}  // namespace platform
