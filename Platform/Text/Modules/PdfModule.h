// What the module `pdf` offers: the pages of a PDF file, and what stands on them.
//
// A document and its pages belong to one thread at a time; different documents to different
// threads.

#pragma once

#include <cstddef>
#include <cstdint>

#include "Platform/Text/Modules/Module.h"
#include "Platform/Text/PdfPageText.h"

namespace platform {

enum class PdfVerdict : std::uint8_t {
    Good,
    Encrypted,  ///< a password or a key is needed
    Damaged,    ///< nobody can make sense of it
    NoMemory
};

/// A file that is open.
struct PdfFile;

/// What one page says.
struct PdfPageContents;

/// Receives one line about what is odd in a file, without its end.
using PdfLog = void (*)(const char* line, std::size_t length);

struct PdfFunctions : ModuleHead {
    static constexpr char kName[] = "pdf";

    /// Opens a file of `size` bytes, which must stay as they are until it is closed. `log` gets the
    /// first of the library's complaints about a file that it opens, while this or another function
    /// works on it.
    PdfVerdict (*open)(const char* bytes, std::size_t size, PdfLog log, PdfFile** file);
    void (*close)(PdfFile* file);

    std::size_t (*countPages)(PdfFile* file);
    /// Reads a page below the count. Its contents may be kept when the file is closed.
    PdfVerdict (*readPage)(PdfFile* file, std::size_t index, PdfPageContents** contents);
    /// What the contents say; valid as long as they are kept.
    PdfPageText (*textOf)(const PdfPageContents* contents);
    void (*release)(PdfPageContents* contents);
};

}  // namespace platform
