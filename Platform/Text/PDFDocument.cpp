#include "Platform/Text/PDFDocument.h"

#include <new>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Text/Modules/PdfModule.h"
#include "Platform/Text/PdfPageLayout.h"

namespace platform {
namespace {

const PdfFunctions& module() {
    return moduleFunctions<PdfFunctions>();
}

struct CloseFile {
    void operator()(PdfFile* file) const { module().close(file); }
};
struct ReleaseContents {
    void operator()(PdfPageContents* contents) const { module().release(contents); }
};

class FilePage final : public PDFPage {
public:
    explicit FilePage(PdfPageContents* contents) : contents_(contents) {}

    [[nodiscard]] AttributedString attributedString() const override {
        return attributedStringFromPdfPage(module().textOf(contents_.get()));
    }

private:
    std::unique_ptr<PdfPageContents, ReleaseContents> contents_;
};

class FileDocument final : public PDFDocument {
public:
    /// `file` reads from the bytes of `data`.
    FileDocument(Data data, PdfFile* file) : data_(std::move(data)), file_(file) {}

    [[nodiscard]] std::uint64_t pageCount() const override {
        return module().countPages(file_.get());
    }

    [[nodiscard]] std::shared_ptr<PDFPage> pageAtIndex(std::uint64_t index) override {
        PdfPageContents* contents = nullptr;
        if (index >= pageCount()) {
            return nullptr;
        }
        if (module().readPage(file_.get(), index, &contents) == PdfVerdict::NoMemory) {
            throw std::bad_alloc();
        }
        return contents == nullptr ? nullptr : std::make_shared<FilePage>(contents);
    }

private:
    Data data_;
    std::unique_ptr<PdfFile, CloseFile> file_;
};

void logLine(const char* line, std::size_t length) {
    log({line, length});
}

}  // namespace

std::shared_ptr<PDFDocument> PDFDocument::initWithData(const Data& data) {
    PdfFile* file = nullptr;
    switch (module().open(data.view().data(), data.size(), logLine, &file)) {
        case PdfVerdict::Good:
            return std::make_shared<FileDocument>(data, file);
        case PdfVerdict::Encrypted:
            noteFailure("PDF: encrypted, and a password or key is needed to read it");
            return nullptr;
        case PdfVerdict::NoMemory:
            throw std::bad_alloc();
        default:
            noteFailure("PDF: damaged, or no PDF file at all");
            return nullptr;
    }
}

}  // namespace platform
