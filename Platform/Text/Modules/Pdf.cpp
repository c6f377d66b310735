// The module `pdf`, over Poppler's GLib interface.
//
// Poppler's objects belong to one thread at a time, and so do ours. What all its documents share it
// guards itself, but for what it makes with its first page; so threads with documents of their own
// wait for nobody here once that is read.

#include <poppler.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <mutex>
#include <new>
#include <string_view>
#include <utility>

#include "Platform/Text/Modules/PdfComplaints.h"
#include "Platform/Text/Modules/PdfContents.h"
#include "Platform/Text/Modules/PdfModule.h"
#include "Platform/Text/Modules/PdfSelection.h"
#include "Platform/Text/Modules/PdfWordList.h"
#include "Platform/Text/PdfDirection.h"

struct platform::PdfFile {
    PdfFile(std::string_view bytes, PdfLog log) : bytes(bytes), complaints(log) {}

    std::string_view bytes;
    platform::PdfComplaints complaints;
    PopplerDocument* document = nullptr;
    /// Open from the first page on that needs it.
    std::unique_ptr<platform::PdfWordList> list;
    /// Whether the last page had text that is read from the right, as the next one may have.
    bool readsFromTheRight = false;
    std::size_t pageCount = 0;
};

namespace {

using platform::PdfFile;
using platform::PdfFunctions;
using platform::PdfLog;
using platform::PdfPageContents;
using platform::PdfPageText;
using platform::PdfVerdict;

/// The file that the calling thread works on.
thread_local PdfFile* current = nullptr;

/// Makes a file the calling thread's current one while it lives.
class Working {
public:
    explicit Working(PdfFile& file) : before_(std::exchange(current, &file)) {}
    ~Working() { current = before_; }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    PdfFile* before_;
};

/// Takes what the library complains about. A program may use the library, too, for documents of its
/// own; GLib writes their lines to standard error.
void takeLine(const gchar* domain, GLogLevelFlags level, const gchar* line, gpointer /*unused*/) {
    if (current != nullptr) {
        current->complaints.take(line);
    } else {
        g_log_default_handler(domain, level, line, nullptr);
    }
}

/// Once for the process: the module stays as long as it does.
void listen() {
    static const guint handler = g_log_set_handler(
        "Poppler",
        static_cast<GLogLevelFlags>(G_LOG_LEVEL_MASK | G_LOG_FLAG_FATAL | G_LOG_FLAG_RECURSION),
        takeLine, nullptr);
    static_cast<void>(handler);
}

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(GBytes* bytes) const { g_bytes_unref(bytes); }
};
using OwnedPage = std::unique_ptr<PopplerPage, Unref>;

/// A page takes more than a byte of its file. What declares more of them lies, and each that is
/// missing would cost a search.
std::size_t countedPages(PopplerDocument* document, std::size_t size) {
    const int declared = poppler_document_get_n_pages(document);
    return declared < 0 ? 0 : std::min(static_cast<std::size_t>(declared), size);
}

PdfVerdict verdictOf(const GError* error) {
    return g_error_matches(error, POPPLER_ERROR, POPPLER_ERROR_ENCRYPTED) != FALSE
               ? PdfVerdict::Encrypted
               : PdfVerdict::Damaged;
}

PdfVerdict openFile(PdfFile& file) {
    const Working working(file);
    const std::unique_ptr<GBytes, Unref> block(
        g_bytes_new_static(file.bytes.data(), file.bytes.size()));
    GError* error = nullptr;
    file.document = poppler_document_new_from_bytes(block.get(), nullptr, &error);
    if (file.document == nullptr) {
        const PdfVerdict verdict = verdictOf(error);
        g_clear_error(&error);
        return verdict;
    }
    file.pageCount = countedPages(file.document, file.bytes.size());
    return PdfVerdict::Good;
}

/// Calls `job`, whose verdict it is, from where nothing may be thrown.
template <class Job>
PdfVerdict verdictOfJob(Job job) {
    try {
        return job();
    } catch (const std::bad_alloc&) {
        return PdfVerdict::NoMemory;
    } catch (const std::exception&) {
        return PdfVerdict::Damaged;
    }
}

void close(PdfFile* file) {
    const Working working(*file);
    file->list.reset();
    if (file->document != nullptr) {
        g_object_unref(file->document);
    }
    delete file;
}

/// With the first page that the library reads it makes what all pages share, such as profiles of
/// colours, and does not guard it. So one thread reads an empty page before all others.
void readFirstPage() {
    static constexpr std::string_view kEmptyPage =
        "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n"
        "2 0 obj<</Type/Pages/Kids[3 0 R]/Count 1>>endobj\n"
        "3 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 9 9]>>endobj\n"
        "trailer<</Size 4/Root 1 0 R>>\n";
    static std::once_flag isRead;
    std::call_once(isRead, [] {
        auto* const file = new (std::nothrow) PdfFile(kEmptyPage, nullptr);
        if (file == nullptr) {
            return;
        }
        (void)verdictOfJob([&] {
            const PdfVerdict verdict = openFile(*file);
            if (verdict == PdfVerdict::Good) {
                const Working working(*file);
                const OwnedPage page(poppler_document_get_page(file->document, 0));
                PdfPageContents contents;
                platform::readSelection(page.get(), contents);
            }
            return verdict;
        });
        close(file);
    });
}

PdfVerdict open(const char* bytes, std::size_t size, PdfLog log, PdfFile** file) {
    listen();
    readFirstPage();
    PdfFile* const opened = new (std::nothrow) PdfFile({bytes, size}, log);
    if (opened == nullptr) {
        return PdfVerdict::NoMemory;
    }
    const PdfVerdict verdict = verdictOfJob([&] { return openFile(*opened); });
    if (verdict == PdfVerdict::Good) {
        opened->complaints.fileIsOpen();
        *file = opened;
    } else {
        close(opened);
    }
    return verdict;
}

/// Reads a page from the list of its words; false when that cannot be.
bool readList(PdfFile& file, std::size_t index, PopplerPage* page, PdfPageContents& contents) {
    if (file.list == nullptr) {
        file.list = std::make_unique<platform::PdfWordList>(file.bytes.data(), file.bytes.size());
    }
    PdfPageContents listed;
    if (!file.list->read(index, listed)) {
        return false;
    }
    platform::findMissing(page, listed);
    platform::findFonts(page, listed);
    file.readsFromTheRight =
        std::any_of(listed.characters.begin(), listed.characters.end(), platform::isFromTheRight);
    contents = std::move(listed);
    return true;
}

void read(PdfFile& file, std::size_t index, PopplerPage* page, PdfPageContents& contents) {
    if (file.readsFromTheRight && readList(file, index, page, contents)) {
        return;
    }
    platform::readSelection(page, contents);
    if (!contents.areAll() && !readList(file, index, page, contents)) {
        std::erase_if(contents.characters, platform::isPdfDirectionMark);
        contents.characters.resize(contents.boxes.size());
    }
}

PdfVerdict readPage(PdfFile* file, std::size_t index, PdfPageContents** contents) {
    const Working working(*file);
    return verdictOfJob([&] {
        const OwnedPage page(poppler_document_get_page(file->document, static_cast<int>(index)));
        if (page == nullptr) {
            return PdfVerdict::Damaged;
        }
        auto made = std::make_unique<PdfPageContents>();
        read(*file, index, page.get(), *made);
        *contents = made.release();
        return PdfVerdict::Good;
    });
}

PdfPageText textOf(const PdfPageContents* contents) {
    return {contents->characters, contents->boxes, contents->fonts};
}

constexpr PdfFunctions kFunctions = {
    {[] {
    }},
    open,
    close,
    [](PdfFile* file) { return file->pageCount; },
    readPage,
    textOf,
    [](PdfPageContents* contents) { delete contents; },
};

}  // namespace

extern "C" __attribute__((visibility("default"))) const platform::ModuleHead* parlavoxModule() {
    return &kFunctions;
}
