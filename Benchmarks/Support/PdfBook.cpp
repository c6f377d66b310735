#include "Benchmarks/Support/PdfBook.h"

#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

#include "Benchmarks/Support/Sentences.h"
#include "Platform/Foundation/Unicode.h"
#include "Tests/Support/MadePdf.h"

namespace bench {
namespace {

constexpr std::size_t kPages = 300;
constexpr std::size_t kLinesOfPage = 45;
constexpr std::size_t kLettersOfLine = 80;

/// The next line of a paragraph: as many words as fit, and the beginning of one more where it is
/// long enough to be broken.
std::string nextLine(std::string& rest) {
    if (rest.size() <= kLettersOfLine) {
        return std::exchange(rest, {});
    }
    const std::size_t blank = rest.rfind(' ', kLettersOfLine);
    const std::size_t end = std::min(rest.find(' ', blank + 1), rest.size());
    constexpr std::size_t kShortestPart = 3;
    const std::size_t room = kLettersOfLine - blank;
    const bool isBroken = room > kShortestPart + 1 && end - blank > room + kShortestPart;
    const std::size_t cut = isBroken ? kLettersOfLine - 1 : blank;
    std::string line = rest.substr(0, cut) + (isBroken ? "-" : "");
    rest.erase(0, isBroken ? cut : blank + 1);
    return line;
}

std::string deflated(const std::string& content) {
    uLongf size = compressBound(content.size());
    std::string bytes(size, '\0');
    compress(reinterpret_cast<Bytef*>(bytes.data()), &size,
             reinterpret_cast<const Bytef*>(content.data()), content.size());
    bytes.resize(size);
    return "<</Filter/FlateDecode/Length " + std::to_string(size) + ">>stream\n" + bytes +
           "\nendstream";
}

constexpr int kFirstLetter = 32;
constexpr int kLastLetter = 126;

/// What a subset of a font comes with: the code point of each letter, and its width.
std::string charactersOfFont() {
    std::string map =
        "/CIDInit /ProcSet findresource begin 12 dict begin begincmap /CMapName /Letters def "
        "1 begincodespacerange <00> <FF> endcodespacerange 95 beginbfchar\n";
    for (int letter = kFirstLetter; letter <= kLastLetter; letter++) {
        char line[24];
        std::snprintf(line, sizeof line, "<%02X> <%04X>\n", letter, letter);
        map += line;
    }
    return map + "endbfchar endcmap end end\n";
}

std::string fontNamed(const std::string& name, int characters) {
    std::string widths;
    for (int letter = kFirstLetter; letter <= kLastLetter; letter++) {
        widths += "500 ";
    }
    return "<</Type/Font/Subtype/Type1/BaseFont/ABCDEF+" + name +
           "/FirstChar 32/LastChar 126/Widths[" + widths + "]/ToUnicode " +
           std::to_string(characters) + " 0 R>>";
}

/// A line as typesetters draw it: its words with the blanks between them as distances.
void drawLine(std::string& content, const test::PdfLineOfText& line, const char* font) {
    char start[64];
    std::snprintf(start, sizeof start, "BT /%s %g Tf 1 0 0 1 %g %g Tm [(", font, line.size, line.x,
                  line.y);
    content += start;
    for (const char c : line.text) {
        content += c == ' ' ? std::string(")-333(") : std::string(1, c);
    }
    content += ")] TJ ET\n";
}

/// A page of a book with a headline and its number below.
std::string drawnPage(std::size_t number, const std::vector<test::PdfLineOfText>& lines) {
    std::string content;
    drawLine(content, {50, 760, "The Keeper of the Lamp", 9}, "F2");
    for (const test::PdfLineOfText& line : lines) {
        drawLine(content, line, "F1");
    }
    drawLine(content, {290, 30, std::to_string(number), 9}, "F2");
    return deflated(content);
}

std::vector<std::vector<test::PdfLineOfText>> linesOfPages() {
    std::vector<std::vector<test::PdfLineOfText>> pages(kPages);
    const std::string text =
        platform::utf8FromUtf16(sentencesOf(kPages * (kLinesOfPage + 1) * kLettersOfLine));
    std::size_t start = 0;
    std::string paragraph;
    for (auto& page : pages) {
        for (std::size_t i = 0; i < kLinesOfPage; i++) {
            const bool isFirst = paragraph.empty();
            if (isFirst) {
                const std::size_t end = std::min(text.find('\n', start), text.size());
                paragraph = text.substr(start, end - start);
                start = end + 1;
            }
            page.push_back({isFirst ? 62.0 : 50.0, 730.0 - 15.0 * static_cast<double>(i),
                            nextLine(paragraph), 11});
        }
    }
    return pages;
}

}  // namespace

std::string pdfBook() {
    std::string kids;
    for (std::size_t i = 0; i < kPages; i++) {
        kids += std::to_string(6 + 2 * i) + " 0 R ";
    }
    test::PdfBytes bytes;
    bytes.addObject("<</Type/Catalog/Pages 2 0 R>>");
    bytes.addObject("<</Type/Pages/Kids[" + kids + "]/Count " + std::to_string(kPages) + ">>");
    bytes.addObject(deflated(charactersOfFont()));
    bytes.addObject(fontNamed("Text-Regular", 3));
    bytes.addObject(fontNamed("Text-Italic", 3));
    std::size_t number = 0;
    for (const auto& lines : linesOfPages()) {
        number++;
        bytes.addObject(
            "<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]/Resources<</Font<</F1 4 0 R/F2 5 0 "
            "R>>>>/Contents " +
            std::to_string(5 + 2 * number) + " 0 R>>");
        bytes.addObject(drawnPage(number, lines));
    }
    return bytes.finish();
}

}  // namespace bench
