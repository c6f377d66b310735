// Poppler's C++ interface. Its headers have the names of those of the other one.

#include "Platform/Text/Modules/PdfWordList.h"

#include <cpp/poppler-document.h>
#include <cpp/poppler-page.h>

#include <algorithm>
#include <limits>
#include <span>
#include <vector>

#include "Platform/Text/Modules/PdfDecoding.h"

struct platform::PdfWordList::Document {
    std::unique_ptr<poppler::document> file;
};

namespace {

using platform::PdfBox;
using platform::PdfPageContents;

PdfBox boxOf(const poppler::rectf& box) {
    return {box.left(), box.top(), box.right(), box.bottom()};
}

/// Where a word has no more characters, the library has this.
bool isNowhere(const poppler::rectf& box) {
    return box.left() == 0 && box.top() == 0 && box.right() == 0 && box.bottom() == 0;
}

void addWord(const poppler::text_box& word, PdfPageContents& contents) {
    const std::size_t first = contents.characters.size();
    const poppler::ustring text = word.text();
    platform::appendDecoded(std::span<const unsigned short>(text), contents.characters);
    const std::size_t told = contents.characters.size() - first;
    for (std::size_t i = 0;; i++) {
        const poppler::rectf box = word.char_bbox(i);
        if (i >= told && isNowhere(box)) {
            break;
        }
        contents.boxes.push_back(boxOf(box));
        contents.characters.resize(std::max(contents.characters.size(), contents.boxes.size()));
    }
    contents.characters.push_back(word.has_space_after() ? U' ' : U'\n');
    contents.boxes.push_back(boxOf(word.bbox()));
}

}  // namespace

namespace platform {

PdfWordList::PdfWordList(const char* bytes, std::size_t size)
    : document_(std::make_unique<Document>()) {
    if (size <= static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        document_->file.reset(poppler::document::load_from_raw_data(bytes, static_cast<int>(size)));
    }
}

PdfWordList::~PdfWordList() = default;

bool PdfWordList::read(std::size_t page, PdfPageContents& contents) {
    if (document_->file == nullptr || document_->file->is_locked()) {
        return false;
    }
    const auto number = static_cast<int>(page);
    const std::unique_ptr<poppler::page> open(document_->file->create_page(number));
    if (open == nullptr) {
        return false;
    }
    // With fonts the library would look for those of the system that come nearest to them.
    for (const poppler::text_box& word : open->text_list()) {
        addWord(word, contents);
    }
    return true;
}

}  // namespace platform
