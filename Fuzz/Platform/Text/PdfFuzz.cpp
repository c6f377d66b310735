// PDF files, up to the text of their first pages.

#include <algorithm>
#include <string_view>

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Text/PDFDocument.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::uint64_t kMostPages = 20;
    platform::setLogSink([](std::string_view line) {
        fuzz::expect(!line.empty(), "a line of the log says something");
    });
    platform::clearFailure();
    const auto document = platform::PDFDocument::initWithData(fuzz::dataOfInput(bytes, size));
    if (document == nullptr) {
        fuzz::expect(platform::lastFailure() != nullptr, "a failure says what is wrong");
        return 0;
    }
    fuzz::expect(document->pageCount() <= size, "a page takes more than a byte");
    for (std::uint64_t i = 0; i < std::min(document->pageCount(), kMostPages); i++) {
        const auto page = document->pageAtIndex(i);
        if (page == nullptr) {
            continue;
        }
        const platform::AttributedString text = page->attributedString();
        std::uint64_t covered = 0;
        for (const platform::AttributeRun& run : text.runs()) {
            fuzz::expect(run.length > 0, "no run is empty");
            covered += run.length;
        }
        fuzz::expect(covered == text.length(), "the runs are as long as the text");
        fuzz::expect(
            text.string().empty() || text.string().back() == u'\n' || text.string().back() == u' ',
            "a page ends with a line feed or a blank");
    }
    return 0;
}
