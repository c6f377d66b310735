// Makes attributed text of PDF files.
//
// Stateless; any thread at once.

#pragma once

#include <optional>

#include "Platform/Foundation/Data.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/PDFDocument.h"

namespace parlavox {

/// A class of class-level operations; there are no instances.
class PDFImporter {
public:
    PDFImporter() = delete;

    /// Returns the text of all pages, one behind the other, without the hyphens that the ends of
    /// lines have left in words, in one paragraph style, the platform's default. Fonts are kept, as
    /// RTF would state them, and no other attributes.
    ///
    /// Answers nothing when there are no bytes, or when they are no PDF file that can be read; a
    /// file without pages is an empty text.
    ///
    /// Selector: createStringFromPDFData:
    [[nodiscard]] static std::optional<platform::AttributedString> createStringFromPDFData(
        const std::optional<platform::Data>& data);

    /// Does the same for the pages of a document that is open. A page that cannot be read
    /// contributes nothing.
    [[nodiscard]] static platform::AttributedString createStringFromDocument(
        platform::PDFDocument& document);
};

}  // namespace parlavox
