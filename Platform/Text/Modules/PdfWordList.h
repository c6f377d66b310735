// The words of a page of a PDF file, all of them.
//
// It takes more than twice as long to list a page's words as to select its text, which the module
// does for every page; so it is there for pages on which a selection may have left something out.
//
// One thread at a time, while the file is open in the other interface, too: it takes what the
// library complains about.

#pragma once

#include <cstddef>
#include <memory>

#include "Platform/Text/Modules/PdfContents.h"

namespace platform {

class PdfWordList {
public:
    /// The bytes must stay as they are while this lives.
    PdfWordList(const char* bytes, std::size_t size);
    ~PdfWordList();
    PdfWordList(const PdfWordList&) = delete;
    PdfWordList& operator=(const PdfWordList&) = delete;

    /// Adds the words of a page to empty contents: blanks and line feeds between them, a zero for
    /// each character that the library does not tell, and no fonts. False when the file or the page
    /// cannot be read like this.
    bool read(std::size_t page, PdfPageContents& contents);

private:
    struct Document;
    std::unique_ptr<Document> document_;
};

}  // namespace platform
