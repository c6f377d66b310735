// Poppler's C++ interface. Its headers have the names of those of the other one.

#include "Platform/Text/Modules/PdfWordList.h"

#include <cpp/poppler-document.h>
#include <cpp/poppler-font.h>
#include <cpp/poppler-page.h>

#include <algorithm>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/Modules/PdfDecoding.h"

struct platform::PdfWordList::Document {
    std::unique_ptr<poppler::document> file;
};

namespace {

using platform::PdfBox;
using platform::PdfPageContents;

/// The list has a copy of all the page's fonts for each word.
constexpr std::size_t kMostFonts = 64;

PdfBox boxOf(const poppler::rectf& box) {
    return {box.left(), box.top(), box.right(), box.bottom()};
}

/// Where a word has no more characters, the library has this.
bool isNowhere(const poppler::rectf& box) {
    return box.left() == 0 && box.top() == 0 && box.right() == 0 && box.bottom() == 0;
}

/// Subsets of fonts have capitals and a plus before their name.
std::string_view withoutSubset(std::string_view name) {
    const auto isCapital = [](char c) {
        return c >= 'A' && c <= 'Z';
    };
    const auto end = std::find_if_not(name.begin(), name.end(), isCapital);
    const bool isSubset = end != name.begin() && end != name.end() && *end == '+';
    return isSubset ? name.substr(static_cast<std::size_t>(end - name.begin()) + 1) : name;
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
        if (word.has_font_info()) {
            const std::string name = word.get_font_name(static_cast<int>(i));
            contents.addFont(withoutSubset(name), word.get_font_size(), contents.boxes.size());
        }
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
    const std::unique_ptr<poppler::font_iterator> fonts(
        document_->file->create_font_iterator(number));
    const bool hasFewFonts = fonts->has_next() && fonts->next().size() <= kMostFonts;
    for (const poppler::text_box& word :
         open->text_list(hasFewFonts ? poppler::page::text_list_include_font : 0)) {
        addWord(word, contents);
    }
    return true;
}

}  // namespace platform
