// PDF import: the text of a book with its paragraphs and fonts, and with its hyphens decided,
// beside the library that reads the text and nothing else.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/PdfFloor.h"
#include "Benchmarks/Support/Sentences.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/PDFDocument.h"
#include "Sources/TextImport/PDFImporter.h"
#include "Tests/Support/MadePdf.h"

namespace bench {
namespace {

using platform::Data;

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

/// A book with a headline on every page and its number below.
std::string bookOfPages() {
    std::vector<test::PdfPageOfText> pages;
    const std::string text =
        platform::utf8FromUtf16(sentencesOf(kPages * (kLinesOfPage + 1) * kLettersOfLine));
    std::size_t start = 0;
    std::string paragraph;
    while (pages.size() < kPages) {
        test::PdfPageOfText page{{50, 760, "The Keeper of the Lamp", 9}};
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
        page.push_back({290, 30, std::to_string(pages.size() + 1), 9});
        pages.push_back(std::move(page));
    }
    return test::madePdf(pages);
}

template <class Job>
std::string add(const std::string& name, Job job) {
    benchmark::RegisterBenchmark(name.c_str(), [job](benchmark::State& state) {
        for (auto _ : state) {
            if (job() == 0) {
                std::fprintf(stderr, "the book has no text\n");
                std::abort();
            }
        }
    })->Unit(benchmark::kMillisecond);
    return name;
}

std::size_t textOfPages(const Data& data) {
    const auto document = platform::PDFDocument::initWithData(data);
    std::size_t length = 0;
    for (std::uint64_t i = 0; i < document->pageCount(); i++) {
        length += document->pageAtIndex(i)->attributedString().length();
    }
    return length;
}

}  // namespace

void addPdfBenchmarks(Report& report) {
    report.begin("A PDF file of 300 pages");
    const auto book = std::make_shared<const std::string>(bookOfPages());
    const Data data = Data::copyOf(*book);
    const std::string floor = add("PDF: Poppler alone", [book] { return popplerTextSize(*book); });
    constexpr double kPagesAlone = 1.2;
    constexpr double kHyphensToo = 1.35;
    report.compare({"pages with columns, paragraphs, fonts",
                    add("PDF: pages", [data] { return textOfPages(data); }), floor,
                    Target::atMost(kPagesAlone)});
    report.compare(
        {"an import, with hyphens decided",
         add("PDF: import",
             [data] { return parlavox::PDFImporter::createStringFromPDFData(data)->length(); }),
         floor, Target::atMost(kHyphensToo)});
}

}  // namespace bench
