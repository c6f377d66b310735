// PDF import: the text of a book with its paragraphs and fonts, and with its hyphens decided,
// beside the library that reads the text and nothing else.

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "Benchmarks/Support/Benchmarks.h"
#include "Benchmarks/Support/PdfBook.h"
#include "Benchmarks/Support/PdfFloor.h"
#include "Platform/Text/PDFDocument.h"
#include "Sources/TextImport/PDFImporter.h"

namespace bench {
namespace {

using platform::Data;

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
    const auto book = std::make_shared<const std::string>(pdfBook());
    const Data data = Data::copyOf(*book);
    const std::string floor = add("PDF: Poppler alone", [book] { return popplerTextSize(*book); });
    constexpr double kTimes = 1.35;
    report.compare({"pages with columns, paragraphs, fonts",
                    add("PDF: pages", [data] { return textOfPages(data); }), floor,
                    Target::none()});
    report.compare(
        {"an import, with hyphens decided",
         add("PDF: import",
             [data] { return parlavox::PDFImporter::createStringFromPDFData(data)->length(); }),
         floor, Target::atMost(kTimes)});
}

}  // namespace bench
