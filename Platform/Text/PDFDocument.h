// PDF files as documents of pages, each with its text.
//
// A document and its pages belong to one thread at a time; different documents to different
// threads at once.

#pragma once

#include <cstdint>
#include <memory>

#include "Platform/Foundation/Data.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// A page of a document.
class PDFPage {
public:
    PDFPage() = default;
    virtual ~PDFPage() = default;
    PDFPage(const PDFPage&) = delete;
    PDFPage& operator=(const PDFPage&) = delete;

    /// Returns the page's text with its fonts, as attributedStringFromPdfPage says; empty when the
    /// page has none.
    ///
    /// Selector: attributedString
    [[nodiscard]] virtual AttributedString attributedString() const = 0;
};

/// A document. Those that are read from files are one kind; a test may have another.
class PDFDocument {
public:
    /// Opens the bytes of a PDF file. Answers nothing when they are none, or when a password or a
    /// key is needed to read it; the cause is the calling thread's last failure. The first thing
    /// that is odd in a file but no reason to refuse it goes to the log.
    ///
    /// Selector: initWithData:
    [[nodiscard]] static std::shared_ptr<PDFDocument> initWithData(const Data& data);

    PDFDocument() = default;
    virtual ~PDFDocument() = default;
    PDFDocument(const PDFDocument&) = delete;
    PDFDocument& operator=(const PDFDocument&) = delete;

    /// Selector: pageCount
    [[nodiscard]] virtual std::uint64_t pageCount() const = 0;

    /// Returns a page, which may outlive the document; null when there is none at `index`, or none
    /// that can be read.
    ///
    /// Selector: pageAtIndex:
    [[nodiscard]] virtual std::shared_ptr<PDFPage> pageAtIndex(std::uint64_t index) = 0;
};

}  // namespace platform
