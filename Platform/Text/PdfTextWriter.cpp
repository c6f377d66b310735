#include "Platform/Text/PdfTextWriter.h"

#include <array>
#include <memory>
#include <utility>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/Modules/UnicodeModule.h"
#include "Platform/Text/PdfParagraphs.h"

namespace platform {
namespace {

constexpr char32_t kSoftHyphen = 0xAD;
constexpr char32_t kHyphen = 0x2010;

/// Whether a character is one form of a letter, or of several, or a radical that looks like an
/// ideograph.
bool isForm(char32_t character) {
    return (character >= 0xFB00 && character <= 0xFDFF) ||
           (character >= 0xFE70 && character <= 0xFEFC) ||
           (character >= 0x2F00 && character <= 0x2FD5) || character == 0x2E9F ||
           character == 0x2EF3;
}

/// Whether a character may be a part of one with what stands before it. Han and Hangul are not.
bool mayCompose(char32_t character) {
    return character >= 0x300 && (character < 0x3100 || character > 0xFFFF);
}

std::u16string unitsOf(char32_t character) {
    if (character < 0x10000) {
        return {static_cast<char16_t>(character)};
    }
    const char32_t rest = character - 0x10000;
    return {static_cast<char16_t>(0xD800 + (rest >> 10U)),
            static_cast<char16_t>(0xDC00 + (rest & 0x3FFU))};
}

Attributes attributesOf(const PdfFont& font) {
    Dictionary attributes;
    const std::string name = utf8FromUtf16(utf16FromUtf8Lossy(font.name));
    attributes.set("NSFont", Value(std::make_shared<const Font>(name, font.size)));
    return std::make_shared<const Dictionary>(std::move(attributes));
}

}  // namespace

PdfTextWriter::PdfTextWriter(std::span<const PdfFont> fonts) {
    for (const PdfFont& font : fonts) {
        attributes_.push_back(attributes_.empty() ? nullptr : attributesOf(font));
    }
}

void PdfTextWriter::begin(const PdfLineText& line) {
    if (!text_.empty()) {
        appendUnits(u"\n", font_);
    }
    write(line);
}

void PdfTextWriter::goOn(const PdfLineText& line) {
    if (!joinWithoutBlank(above_, line.characters)) {
        appendUnits(u" ", font_);
    }
    write(line);
}

AttributedString PdfTextWriter::finish() {
    if (!text_.empty()) {
        appendUnits(endsInBrokenWord_ ? u" " : u"\n", font_);
    }
    endRun();
    return {std::make_shared<const std::u16string>(std::move(text_)), std::move(runs_)};
}

void PdfTextWriter::write(const PdfLineText& line) {
    for (std::size_t i = 0; i < line.characters.size(); i++) {
        const auto [character, font] = line.characters[i];
        const bool isLast = i + 1 == line.characters.size();
        if (isLast && (character == kSoftHyphen || character == kHyphen)) {
            append(U'-', font);
        } else if (character != kSoftHyphen) {
            append(character, font);
        }
    }
    above_ = line.characters;
    endsInBrokenWord_ = endsInBrokenWord(line);
}

void PdfTextWriter::append(char32_t character, std::uint32_t font) {
    if (character < 0x300) {
        useFont(font);
        text_ += static_cast<char16_t>(character);
    } else if (isForm(character)) {
        appendPlainForm(character, font);
    } else if (!mayCompose(character) || !compose(character)) {
        appendUnits(unitsOf(character), font);
    }
}

void PdfTextWriter::appendPlainForm(char32_t character, std::uint32_t font) {
    // The longest has eighteen letters.
    std::array<char16_t, 64> units{};
    const std::size_t count =
        moduleFunctions<UnicodeFunctions>().plainForm(character, units.data(), units.size());
    if (count == 0) {
        appendUnits(unitsOf(character), font);
        return;
    }
    // Marks that stand alone stand for a blank with a mark on it.
    const std::size_t first = count > 1 && units[0] == u' ' ? 1 : 0;
    for (std::size_t i = first; i < count; i++) {
        if (!compose(units[i])) {
            appendUnits({&units[i], 1}, font);
        }
    }
}

void PdfTextWriter::appendUnits(std::u16string_view units, std::uint32_t font) {
    useFont(font);
    text_ += units;
}

void PdfTextWriter::useFont(std::uint32_t font) {
    if (font != font_) {
        endRun();
        font_ = font;
    }
}

/// Adds the run of what was written since the last one.
void PdfTextWriter::endRun() {
    appendRun(runs_, text_.size() - runStart_, attributes_[font_]);
    runStart_ = text_.size();
}

bool PdfTextWriter::compose(char32_t mark) {
    if (text_.empty() || isLowSurrogate(text_.back())) {
        return false;
    }
    const char32_t character = moduleFunctions<UnicodeFunctions>().composed(text_.back(), mark);
    if (character == 0 || character > 0xFFFF) {
        return false;
    }
    text_.back() = static_cast<char16_t>(character);
    return true;
}

}  // namespace platform
