#include "Platform/Text/Modules/PdfSelection.h"

#include <poppler.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "Platform/Text/Modules/PdfDecoding.h"
#include "Platform/Text/Modules/PdfFontsByPlace.h"

namespace {

using platform::PdfBox;
using platform::PdfPageContents;

struct FreeRuns {
    void operator()(GList* runs) const { poppler_page_free_text_attributes(runs); }
};

struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
};
template <class Item>
using OwnedArray = std::unique_ptr<Item, Free>;

/// Selections run from one point to another. On a page that reads from the left all text lies
/// between its upper left corner and its lower right one, if both are taken far outside.
constexpr double kFar = 1e9;
constexpr PopplerRectangle kWholePage = {-kFar, -kFar, kFar, kFar};
/// The same the other way.
constexpr PopplerRectangle kFromTheRight = {kFar, -kFar, -kFar, kFar};

/// The boxes of the characters of a page.
struct Boxes {
    OwnedArray<PopplerRectangle> first;
    guint count = 0;
};

Boxes selectedBoxes(PopplerPage* page, PopplerRectangle area) {
    PopplerRectangle* first = nullptr;
    guint count = 0;
    if (poppler_page_get_text_layout_for_area(page, &area, &first, &count) == FALSE) {
        return {};
    }
    return {OwnedArray<PopplerRectangle>(first), count};
}

PdfBox boxOf(const PopplerRectangle& box) {
    return {box.x1, box.y1, box.x2, box.y2};
}

OwnedArray<char> selectedText(PopplerPage* page, PopplerRectangle area) {
    return OwnedArray<char>(poppler_page_get_text_for_area(page, &area));
}

std::string_view viewOf(const OwnedArray<char>& text) {
    return text == nullptr ? std::string_view() : std::string_view(text.get());
}

/// Calls `use` with each font of a selection and the end of its characters.
template <class Use>
void forFonts(PopplerPage* page, PopplerRectangle area, const Use& use) {
    const std::unique_ptr<GList, FreeRuns> runs(
        poppler_page_get_text_attributes_for_area(page, &area));
    for (const GList* link = runs.get(); link != nullptr; link = link->next) {
        const auto* const run = static_cast<const PopplerTextAttributes*>(link->data);
        use(*run, static_cast<std::size_t>(run->end_index) + 1);
    }
}

void readFonts(PopplerPage* page, PdfPageContents& contents) {
    forFonts(page, kWholePage, [&](const PopplerTextAttributes& run, std::size_t end) {
        contents.addFont(run.font_name, run.font_size, end);
    });
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

}  // namespace

namespace platform {

/// Each selection takes the memory of the one before it again, as long as nothing else takes that;
/// so what they found is turned into contents at the end.
void readSelection(PopplerPage* page, PdfPageContents& contents) {
    readFonts(page, contents);
    const Boxes boxes = selectedBoxes(page, kWholePage);
    const OwnedArray<char> text = selectedText(page, kWholePage);
    appendDecoded(viewOf(text), contents.characters);
    contents.boxes.resize(boxes.count);
    std::transform(boxes.first.get(), boxes.first.get() + boxes.count, contents.boxes.begin(),
                   boxOf);
}

void findFonts(PopplerPage* page, PdfPageContents& contents) {
    PdfFontsByPlace fonts;
    for (const PopplerRectangle& area : {kWholePage, kFromTheRight}) {
        const Boxes boxes = selectedBoxes(page, area);
        std::size_t at = 0;
        forFonts(page, area, [&](const PopplerTextAttributes& run, std::size_t end) {
            const std::size_t font = fonts.add(run.font_name, run.font_size);
            for (; at < std::min<std::size_t>(end, boxes.count); at++) {
                fonts.place(boxOf(boxes.first.get()[at]), font);
            }
        });
    }
    fonts.giveTo(contents);
}

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
            appendDecoded(viewOf(selectedText(page, areaOf(contents, first, end))), found);
        }
        found.resize(std::min(found.size(), end - first));
        at = std::copy(found.begin(), found.end(), at + 1);
        at = std::find(at, characters.end(), U'\0');
    }
}

}  // namespace platform
