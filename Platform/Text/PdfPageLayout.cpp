#include "Platform/Text/PdfPageLayout.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "Platform/Text/PdfColumns.h"
#include "Platform/Text/PdfLineText.h"
#include "Platform/Text/PdfLines.h"
#include "Platform/Text/PdfParagraphs.h"
#include "Platform/Text/PdfTextWriter.h"
#include "Platform/Text/PdfWords.h"

namespace platform {
namespace {

/// The lines of a page, in the order in which they are read.
struct ReadLines {
    std::vector<PdfTextLine> lines;
    /// How many lines each stretch of a column has.
    std::vector<std::size_t> flows;
};

ReadLines linesAsRead(const PdfPageWords& page, std::span<const PdfWord> words) {
    const std::vector<PdfFragment> fragments = fragmentsOf(words, page.glyphs);
    const PdfLineSource source{page, words, fragments};
    ReadLines read;
    for (const auto& flow : flowsOf(fragments, page.readsFromTheRight)) {
        std::vector<PdfLine> lines = linesOf(flow, fragments);
        read.flows.push_back(lines.size());
        for (PdfLine& line : lines) {
            PdfLineText text = textOfLine(line, source);
            read.lines.push_back({std::move(line), std::move(text)});
        }
    }
    return read;
}

}  // namespace

AttributedString attributedStringFromPdfPage(const PdfPageText& page) {
    const PdfPageWords words = wordsOfPage(page);
    PdfTextWriter writer(words.fonts);
    for (const auto& turn : words.wordsByTurn) {
        const ReadLines read = linesAsRead(words, turn);
        const std::vector<bool> goesOn = linesThatGoOn(read.lines, read.flows, words.fonts);
        for (std::size_t i = 0; i < read.lines.size(); i++) {
            if (goesOn[i]) {
                writer.goOn(read.lines[i].text);
            } else {
                writer.begin(read.lines[i].text);
            }
        }
    }
    return writer.finish();
}

}  // namespace platform
