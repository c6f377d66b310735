// Characters and boxes, wherever they are, as the text of a page.
//
// Each eight bytes are a character: its place in the table below, its corner's coordinates in two
// bytes each, its width and height, and its font's size.

#include <algorithm>
#include <cstring>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "Fuzz/Support/Input.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/PdfPageLayout.h"

namespace {

using platform::PdfBox;
using platform::PdfFontRun;

/// Those that come out as they are, whatever stands beside them.
constexpr std::u32string_view kKept =
    U"qbkzQ7359\u05D0\u05D1\u05E9\u0628\u0643\u0645\u0644\u0627\u4E00\u4EBA\u3042\u3093\u0E01"
    U"\u0E17\U0001F600";
/// Those that make something else of others, or are left out.
constexpr std::u32string_view kOthers =
    U"        "
    U"\n\n\n--\u2010\u00AD.,()\u0303\u0308\u064B\u05B8\u0E34\uFB01\uFEFB\uF0B7\u202B\u200Eaeu"
    U"\u2022\u3001\u0663%$\u20AA\u201C\u2026\u2F24";

struct Page {
    std::vector<char32_t> characters;
    std::vector<PdfBox> boxes;
    std::vector<PdfFontRun> fonts;
};

double coordinate(const std::uint8_t* bytes) {
    std::int16_t number = 0;
    std::memcpy(&number, bytes, sizeof number);
    if (number == std::numeric_limits<std::int16_t>::min()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return number == std::numeric_limits<std::int16_t>::max()
               ? std::numeric_limits<double>::infinity()
               : number / 16.0;
}

Page pageIn(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::size_t kEach = 8;
    Page page;
    for (std::size_t at = 0; at + kEach <= size; at += kEach) {
        const std::size_t place = bytes[at] % (kKept.size() + kOthers.size());
        page.characters.push_back(place < kKept.size() ? kKept[place]
                                                       : kOthers[place - kKept.size()]);
        const double left = coordinate(bytes + at + 1);
        const double top = coordinate(bytes + at + 3);
        page.boxes.push_back({left, top, left + bytes[at + 5] / 4.0, top + bytes[at + 6] / 4.0});
        page.fonts.push_back(
            {page.characters.size(), bytes[at + 7] < 128 ? "A" : "B", bytes[at + 7] % 128 / 4.0});
    }
    return page;
}

std::map<char32_t, int> countsOf(const std::vector<char32_t>& characters) {
    std::map<char32_t, int> counts;
    for (const char32_t character : characters) {
        // Its letters come out, too.
        if (character == 0xFEFB) {
            counts[0x644]++;
            counts[0x627]++;
        } else if (kKept.find(character) != std::u32string_view::npos) {
            counts[character]++;
        }
    }
    return counts;
}

std::vector<char32_t> codePointsIn(const std::u16string& text) {
    std::vector<char32_t> codePoints;
    for (const char16_t unit : text) {
        if (platform::isLowSurrogate(unit) && !codePoints.empty()) {
            codePoints.back() = 0x10000 + ((codePoints.back() & 0x3FFU) << 10U) + (unit & 0x3FFU);
        } else {
            codePoints.push_back(unit);
        }
    }
    return codePoints;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const Page page = pageIn(bytes, size);
    const platform::AttributedString text =
        platform::attributedStringFromPdfPage({page.characters, page.boxes, page.fonts});
    fuzz::expect(countsOf(codePointsIn(text.string())) == countsOf(page.characters),
                 "every character that is kept comes out, and as often");
    std::uint64_t covered = 0;
    for (const platform::AttributeRun& run : text.runs()) {
        covered += run.length;
    }
    fuzz::expect(covered == text.length(), "the runs are as long as the text");
    return 0;
}
