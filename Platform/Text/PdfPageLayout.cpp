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

/// A stretch of lines and whether each goes on with the paragraph of the one before.
class Writing {
public:
    Writing(const PdfPageWords& page, std::span<const PdfWord> words)
        : read_(linesAsRead(page, words)),
          goesOn_(linesThatGoOn(read_.lines, read_.flows, page.fonts)) {}

    [[nodiscard]] std::size_t count() const { return read_.lines.size(); }

    /// Where the last paragraph begins when it ends in a broken word, else the end.
    [[nodiscard]] std::size_t startOfBrokenEnd() const {
        std::size_t start = count();
        if (start > 0 && endsInBrokenWord(read_.lines.back().text)) {
            do {
                start--;
            } while (goesOn_[start]);
        }
        return start;
    }

    void write(PdfTextWriter& writer, std::size_t start, std::size_t end) const {
        for (std::size_t i = start; i < end; i++) {
            if (goesOn_[i]) {
                writer.goOn(read_.lines[i].text);
            } else {
                writer.begin(read_.lines[i].text);
            }
        }
    }

private:
    ReadLines read_;
    std::vector<bool> goesOn_;
};

}  // namespace

AttributedString attributedStringFromPdfPage(const PdfPageText& page) {
    const PdfPageWords words = wordsOfPage(page);
    PdfTextWriter writer(words.fonts);
    const Writing most(words, words.wordsByTurn.front());
    // A word that goes on at the top of the next page must come last.
    const std::size_t end = most.startOfBrokenEnd();
    most.write(writer, 0, end);
    for (const auto& turn : std::span(words.wordsByTurn).subspan(1)) {
        const Writing other(words, turn);
        other.write(writer, 0, other.count());
    }
    most.write(writer, end, most.count());
    return writer.finish();
}

}  // namespace platform
