// The module `pdf`, over Poppler's GLib interface.
//
// Poppler's objects belong to one thread at a time, and so do ours; what all its documents share it
// guards itself. So threads with documents of their own wait for nobody here.

#include <poppler.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Text/Modules/PdfModule.h"

struct platform::PdfFile {
    PopplerDocument* document = nullptr;
    platform::PdfLog log = nullptr;
    /// The first complaint, which tells most: damaged files draw one for each of their bytes.
    std::string complaint;
    bool hasComplained = false;
    /// Until the file is open, it may still be refused, which says enough.
    bool isOpen = false;
    std::size_t pageCount = 0;
};

struct platform::PdfPageContents {
    std::vector<char32_t> characters;
    std::vector<platform::PdfBox> boxes;
    std::vector<platform::PdfFontRun> fonts;
    /// What the names of the runs lie in.
    GList* attributes = nullptr;

    PdfPageContents() = default;
    ~PdfPageContents() { poppler_page_free_text_attributes(attributes); }
    PdfPageContents(const PdfPageContents&) = delete;
    PdfPageContents& operator=(const PdfPageContents&) = delete;
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
/// own; their lines go where they went before.
void takeLine(const gchar* domain, GLogLevelFlags level, const gchar* line, gpointer /*unused*/) {
    if (current == nullptr) {
        g_log_default_handler(domain, level, line, nullptr);
        return;
    }
    if (current->hasComplained) {
        return;
    }
    current->hasComplained = true;
    current->complaint = std::string("PDF: ") + line;
    if (current->isOpen) {
        current->log(current->complaint.data(), current->complaint.size());
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

PdfVerdict openFile(PdfFile& file, const char* bytes, std::size_t size) {
    const Working working(file);
    const std::unique_ptr<GBytes, Unref> block(g_bytes_new_static(bytes, size));
    GError* error = nullptr;
    file.document = poppler_document_new_from_bytes(block.get(), nullptr, &error);
    if (file.document == nullptr) {
        const PdfVerdict verdict = verdictOf(error);
        g_clear_error(&error);
        return verdict;
    }
    file.pageCount = countedPages(file.document, size);
    return PdfVerdict::Open;
}

void close(PdfFile* file) {
    if (file->document != nullptr) {
        const Working working(*file);
        g_object_unref(file->document);
    }
    delete file;
}

PdfVerdict open(const char* bytes, std::size_t size, PdfLog log, PdfFile** file) {
    listen();
    PdfFile* const opened = new (std::nothrow) PdfFile;
    if (opened == nullptr) {
        return PdfVerdict::NoMemory;
    }
    opened->log = log;
    PdfVerdict verdict = PdfVerdict::NoMemory;
    try {
        verdict = openFile(*opened, bytes, size);
    } catch (const std::bad_alloc&) {
        // The verdict says it.
    }
    if (verdict == PdfVerdict::Open) {
        opened->isOpen = true;
        if (opened->hasComplained) {
            log(opened->complaint.data(), opened->complaint.size());
        }
        *file = opened;
    } else {
        close(opened);
    }
    return verdict;
}

/// Appends the code points of the library's UTF-8, in which surrogates may stand, too. What is cut
/// off at the end is left out.
void appendDecoded(std::string_view text, std::vector<char32_t>& codePoints) {
    codePoints.reserve(text.size());
    std::size_t at = 0;
    while (at < text.size()) {
        const auto first = static_cast<unsigned char>(text[at]);
        const std::size_t more = first < 0xC0 ? 0 : first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
        if (more >= text.size() - at) {
            return;
        }
        char32_t codePoint = more == 0 ? first : first & (0x3FU >> more);
        for (std::size_t i = 1; i <= more; i++) {
            codePoint = (codePoint << 6U) | (static_cast<unsigned char>(text[at + i]) & 0x3FU);
        }
        codePoints.push_back(codePoint);
        at += more + 1;
    }
}

// The library puts words that read from the right into the order in which they are read, between
// these code points, which have no boxes. The boxes keep the order of the page.
constexpr char32_t kFromTheLeftMark = 0x202A;
constexpr char32_t kFromTheRightMark = 0x202B;
constexpr char32_t kEndMark = 0x202C;

bool isMark(char32_t codePoint) {
    return codePoint >= kFromTheLeftMark && codePoint <= kEndMark;
}

/// Appends what stands from `at` up to the next mark; returns where that is.
std::size_t appendToMark(const std::vector<char32_t>& read, std::size_t at,
                         std::vector<char32_t>& shown) {
    while (at < read.size() && !isMark(read[at])) {
        shown.push_back(read[at++]);
    }
    return at;
}

/// Appends the word behind a mark at `at` as it stands on the page; returns where it ends. What
/// reads from the left inside it is turned twice.
std::size_t appendTurned(const std::vector<char32_t>& read, std::size_t at,
                         std::vector<char32_t>& shown) {
    const auto start = static_cast<std::ptrdiff_t>(shown.size());
    at = appendToMark(read, at + 1, shown);
    while (at < read.size() && read[at] == kFromTheLeftMark) {
        const auto inner = static_cast<std::ptrdiff_t>(shown.size());
        at = appendToMark(read, at + 1, shown);
        std::reverse(shown.begin() + inner, shown.end());
        at += at < read.size() && read[at] == kEndMark ? 1 : 0;
        at = appendToMark(read, at, shown);
    }
    std::reverse(shown.begin() + start, shown.end());
    return at;
}

/// The characters in the order of the page, without the marks.
std::vector<char32_t> charactersAsShown(const std::vector<char32_t>& read) {
    std::vector<char32_t> shown;
    shown.reserve(read.size());
    std::size_t at = 0;
    while (at < read.size()) {
        at = appendToMark(read, at, shown);
        if (at < read.size()) {
            at = read[at] == kFromTheRightMark ? appendTurned(read, at, shown) : at + 1;
        }
    }
    return shown;
}

std::vector<PdfBox> boxesIn(PopplerPage* page, PopplerRectangle area) {
    PopplerRectangle* rectangles = nullptr;
    guint count = 0;
    if (poppler_page_get_text_layout_for_area(page, &area, &rectangles, &count) == FALSE) {
        return {};
    }
    const OwnedArray<PopplerRectangle> owned(rectangles);
    std::vector<PdfBox> boxes;
    boxes.reserve(count);
    for (guint i = 0; i < count; i++) {
        const PopplerRectangle& box = rectangles[i];
        boxes.push_back({box.x1, box.y1, box.x2, box.y2});
    }
    return boxes;
}

/// Selections run from a corner to the opposite one. They take in everything only where the corners
/// lie outside of all that is written and the page's direction fits.
constexpr double kFarOutside = 1e9;
constexpr PopplerRectangle kFromTheLeft = {-kFarOutside, -kFarOutside, kFarOutside, kFarOutside};
constexpr PopplerRectangle kFromTheRight = {kFarOutside, -kFarOutside, -kFarOutside, kFarOutside};

/// Makes a box for each character. Where the page has marks of its own, the counts fit as they are.
/// Otherwise a file has characters that the library's text lacks, or text that it cuts off.
void matchCharacters(PdfPageContents& contents) {
    if (contents.characters.size() != contents.boxes.size()) {
        contents.characters = charactersAsShown(contents.characters);
    }
    contents.boxes.resize(contents.characters.size(),
                          contents.boxes.empty() ? PdfBox{} : contents.boxes.back());
}

void readFonts(PdfPageContents& contents) {
    for (const GList* link = contents.attributes; link != nullptr; link = link->next) {
        const auto* const run = static_cast<const PopplerTextAttributes*>(link->data);
        const auto end = static_cast<std::size_t>(run->end_index) + 1;
        contents.fonts.push_back({end, run->font_name, run->font_size});
    }
}

void read(PopplerPage* page, PdfPageContents& contents) {
    PopplerRectangle area = kFromTheLeft;
    contents.boxes = boxesIn(page, area);
    OwnedArray<char> text(poppler_page_get_text_for_area(page, &area));
    appendDecoded(text.get(), contents.characters);
    if (std::any_of(contents.characters.begin(), contents.characters.end(), isMark)) {
        // The page may be one that is read from the right.
        std::vector<PdfBox> boxes = boxesIn(page, kFromTheRight);
        if (boxes.size() > contents.boxes.size()) {
            area = kFromTheRight;
            contents.boxes = std::move(boxes);
            text.reset(poppler_page_get_text_for_area(page, &area));
            contents.characters.clear();
            appendDecoded(text.get(), contents.characters);
        }
    }
    matchCharacters(contents);
    contents.attributes = poppler_page_get_text_attributes_for_area(page, &area);
    readFonts(contents);
}

PdfPageContents* readPage(PdfFile* file, std::size_t index) {
    if (index >= file->pageCount) {
        return nullptr;
    }
    const Working working(*file);
    try {
        const OwnedPage page(poppler_document_get_page(file->document, static_cast<int>(index)));
        if (page == nullptr) {
            return nullptr;
        }
        auto contents = std::make_unique<PdfPageContents>();
        read(page.get(), *contents);
        return contents.release();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
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
