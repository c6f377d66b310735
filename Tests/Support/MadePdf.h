// Small PDF files, made of lines of ASCII text.

#pragma once

#include <cstddef>
#include <cstdio>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace test {

/// A line of text in Helvetica, its baseline's start in points from the lower left corner.
struct PdfLineOfText {
    double x = 0;
    double y = 0;
    std::string text;
    double size = 12;
};

using PdfPageOfText = std::vector<PdfLineOfText>;

/// Writes a file's objects and remembers where they begin.
class PdfBytes {
public:
    /// Numbers begin with 1.
    void addObject(std::string_view body) {
        offsets_.push_back(bytes_.size());
        bytes_ += std::to_string(offsets_.size()) + " 0 obj\n" + std::string(body) + "\nendobj\n";
    }

    /// Requires: object 1 is the catalogue.
    std::string finish() {
        const std::size_t table = bytes_.size();
        const std::string count = std::to_string(offsets_.size() + 1);
        bytes_ += "xref\n0 " + count + "\n0000000000 65535 f \n";
        for (const std::size_t offset : offsets_) {
            char line[24];
            std::snprintf(line, sizeof line, "%010zu 00000 n \n", offset);
            bytes_ += line;
        }
        bytes_ += "trailer\n<</Size " + count + "/Root 1 0 R>>\nstartxref\n" +
                  std::to_string(table) + "\n%%EOF\n";
        return std::move(bytes_);
    }

private:
    std::string bytes_ = "%PDF-1.4\n";
    std::vector<std::size_t> offsets_;
};

inline std::string pdfStream(const PdfPageOfText& page) {
    std::string content;
    for (const PdfLineOfText& line : page) {
        char start[96];
        std::snprintf(start, sizeof start, "BT /F1 %g Tf %g %g Td (", line.size, line.x, line.y);
        content += start;
        for (const char c : line.text) {
            content += c == '(' || c == ')' || c == '\\' ? "\\" : "";
            content += c;
        }
        content += ") Tj ET\n";
    }
    return "<</Length " + std::to_string(content.size()) + ">>stream\n" + content + "endstream";
}

/// A file with these pages, each 600 points wide and 800 high, shown turned by `rotation` degrees.
inline std::string madePdf(const std::vector<PdfPageOfText>& pages, int rotation = 0) {
    PdfBytes bytes;
    std::string kids;
    for (std::size_t i = 0; i < pages.size(); i++) {
        kids += std::to_string(4 + 2 * i) + " 0 R ";
    }
    bytes.addObject("<</Type/Catalog/Pages 2 0 R>>");
    bytes.addObject("<</Type/Pages/Kids[" + kids + "]/Count " + std::to_string(pages.size()) +
                    ">>");
    bytes.addObject("<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding>>");
    for (std::size_t i = 0; i < pages.size(); i++) {
        bytes.addObject("<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]/Rotate " +
                        std::to_string(rotation) + "/Resources<</Font<</F1 3 0 R>>>>/Contents " +
                        std::to_string(5 + 2 * i) + " 0 R>>");
        bytes.addObject(pdfStream(pages[i]));
    }
    return bytes.finish();
}

/// A line of glyphs as they stand on the page, each 6 points wide and in size 12; its baseline's
/// start in points from the lower left corner.
struct PdfLineOfGlyphs {
    double x = 0;
    double y = 0;
    std::u16string glyphs;
};

/// Text of a file's map from codes to characters.
inline std::string pdfHex(std::u16string_view units) {
    std::string hex;
    for (const char16_t unit : units) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%04X", static_cast<unsigned>(unit));
        hex += digits;
    }
    return hex;
}

/// A file of one page in a font of its own, which says of each glyph that it means itself, or what
/// `meanings` has for it.
inline std::string madePdfOfGlyphs(const std::vector<PdfLineOfGlyphs>& lines,
                                   const std::map<char16_t, std::u16string>& meanings = {}) {
    std::map<char16_t, int> codes;
    std::string content;
    for (const PdfLineOfGlyphs& line : lines) {
        char start[96];
        std::snprintf(start, sizeof start, "BT /F1 12 Tf %g %g Td <", line.x, line.y);
        content += start;
        for (const char16_t glyph : line.glyphs) {
            const int code =
                codes.try_emplace(glyph, static_cast<int>(codes.size()) + 1).first->second;
            char digits[4];
            std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(code) & 0xFFU);
            content += digits;
        }
        content += "> Tj ET\n";
    }
    std::string map = "1 begincodespacerange <00> <FF> endcodespacerange " +
                      std::to_string(codes.size()) + " beginbfchar\n";
    std::string widths;
    for (const auto& [glyph, code] : codes) {
        const auto meaning = meanings.find(glyph);
        const std::u16string text =
            meaning == meanings.end() ? std::u16string(1, glyph) : meaning->second;
        char digits[8];
        std::snprintf(digits, sizeof digits, "<%02X> ", static_cast<unsigned>(code) & 0xFFU);
        map += digits + ("<" + pdfHex(text)) + ">\n";
        widths += "500 ";
    }
    map += "endbfchar";
    PdfBytes bytes;
    bytes.addObject("<</Type/Catalog/Pages 2 0 R>>");
    bytes.addObject("<</Type/Pages/Kids[5 0 R]/Count 1>>");
    bytes.addObject("<</Length " + std::to_string(map.size()) + ">>stream\n" + map + "\nendstream");
    bytes.addObject("<</Type/Font/Subtype/Type1/BaseFont/ABCDEF+Made/FirstChar 1/LastChar " +
                    std::to_string(codes.size()) + "/Widths[" + widths + "]/ToUnicode 3 0 R>>");
    bytes.addObject(
        "<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]/Resources<</Font<</F1 4 0 R>>>>/Contents "
        "6 0 R>>");
    bytes.addObject("<</Length " + std::to_string(content.size()) + ">>stream\n" + content +
                    "endstream");
    return bytes.finish();
}

}  // namespace test
