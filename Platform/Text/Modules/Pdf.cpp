// The module `pdf`, over Poppler's GLib interface.
//
// Poppler's objects belong to one thread at a time, and so do ours; what all its documents share it
// guards itself. So threads with documents of their own wait for nobody here.

#include <poppler.h>

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Text/Modules/PdfComplaints.h"
#include "Platform/Text/Modules/PdfContents.h"
#include "Platform/Text/Modules/PdfDecoding.h"
#include "Platform/Text/Modules/PdfModule.h"
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

using platform::PdfBox;
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

struct FreeRuns {
    void operator()(GList* runs) const { poppler_page_free_text_attributes(runs); }
};

struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
};
template <class Item>
using OwnedArray = std::unique_ptr<Item, Free>;

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

PdfVerdict open(const char* bytes, std::size_t size, PdfLog log, PdfFile** file) {
    listen();
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

/// Selections run from one point to another. On a page that reads from the left all text lies
/// between its upper left corner and its lower right one, if both are taken far outside.
constexpr double kFar = 1e9;
constexpr PopplerRectangle kWholePage = {-kFar, -kFar, kFar, kFar};

/// The boxes of the characters of a page.
struct Boxes {
    OwnedArray<PopplerRectangle> first;
    guint count = 0;
};

Boxes selectedBoxes(PopplerPage* page) {
    PopplerRectangle area = kWholePage;
    PopplerRectangle* first = nullptr;
    guint count = 0;
    if (poppler_page_get_text_layout_for_area(page, &area, &first, &count) == FALSE) {
        return {};
    }
    return {OwnedArray<PopplerRectangle>(first), count};
}

OwnedArray<char> selectedText(PopplerPage* page, PopplerRectangle area) {
    return OwnedArray<char>(poppler_page_get_text_for_area(page, &area));
}

std::string_view viewOf(const OwnedArray<char>& text) {
    return text == nullptr ? std::string_view() : std::string_view(text.get());
}

void readFonts(PopplerPage* page, PdfPageContents& contents) {
    PopplerRectangle area = kWholePage;
    GList* const runs = poppler_page_get_text_attributes_for_area(page, &area);
    const std::unique_ptr<GList, FreeRuns> owned(runs);
    for (const GList* link = runs; link != nullptr; link = link->next) {
        const auto* const run = static_cast<const PopplerTextAttributes*>(link->data);
        contents.addFont(run->font_name, run->font_size,
                         static_cast<std::size_t>(run->end_index) + 1);
    }
}

/// The library's words end where a code point of a character is zero. What is behind it can be
/// selected, which is worth the time for so many of them on a page.
constexpr int kMostEnds = 1000;

/// Where characters from `first` up to `end` of a word stand. The middle of each counts.
PopplerRectangle areaOf(const PdfPageContents& contents, std::size_t first, std::size_t end) {
    const PdfBox& from = contents.boxes[first];
    const PdfBox& to = contents.boxes[end - 1];
    constexpr double kInside = 0.25;
    return {from.left + (from.right - from.left) * kInside,
            from.top + (from.bottom - from.top) * kInside,
            to.right - (to.right - to.left) * kInside, to.bottom - (to.bottom - to.top) * kInside};
}

/// Looks for the characters that words have behind their zeros.
void findMissing(PopplerPage* page, PdfPageContents& contents) {
    std::vector<char32_t>& characters = contents.characters;
    int ends = 0;
    auto at = std::find(characters.begin(), characters.end(), U'\0');
    while (at != characters.end() && ends++ < kMostEnds) {
        const auto first = static_cast<std::size_t>(at - characters.begin()) + 1;
        const auto behind = std::find_if(at, characters.end(), [](char32_t c) { return c != 0; });
        const auto end = static_cast<std::size_t>(behind - characters.begin());
        std::vector<char32_t> found;
        if (first < end) {
            platform::appendDecoded(viewOf(selectedText(page, areaOf(contents, first, end))),
                                    found);
        }
        found.resize(std::min(found.size(), end - first));
        at = std::copy(found.begin(), found.end(), at + 1);
        at = std::find(at, characters.end(), U'\0');
    }
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
    findMissing(page, listed);
    file.readsFromTheRight =
        std::any_of(listed.characters.begin(), listed.characters.end(), platform::isFromTheRight);
    contents = std::move(listed);
    return true;
}

/// Each selection takes the memory of the one before it again, as long as nothing else takes that;
/// so what they found is turned into contents at the end.
void readSelection(PopplerPage* page, PdfPageContents& contents) {
    readFonts(page, contents);
    const Boxes boxes = selectedBoxes(page);
    const OwnedArray<char> text = selectedText(page, kWholePage);
    platform::appendDecoded(viewOf(text), contents.characters);
    contents.boxes.resize(boxes.count);
    std::transform(
        boxes.first.get(), boxes.first.get() + boxes.count, contents.boxes.begin(),
        [](const PopplerRectangle& box) { return PdfBox(box.x1, box.y1, box.x2, box.y2); });
}

void read(PdfFile& file, std::size_t index, PopplerPage* page, PdfPageContents& contents) {
    if (file.readsFromTheRight && readList(file, index, page, contents)) {
        return;
    }
    readSelection(page, contents);
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
