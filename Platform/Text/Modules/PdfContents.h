// What was read of one page of a PDF file.
//
// One thread at a time.

#pragma once

#include <algorithm>
#include <cstddef>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Text/Modules/PdfModule.h"

namespace platform {

/// Whether a character is one of the marks that the library puts around what is read from the
/// right, and around every word of a page that is read from the right. A file may have such marks
/// of its own.
constexpr bool isPdfDirectionMark(char32_t character) noexcept {
    return character >= 0x202A && character <= 0x202C;
}

}  // namespace platform

struct platform::PdfPageContents {
    std::vector<char32_t> characters;
    /// One for each character.
    std::vector<PdfBox> boxes;
    std::vector<PdfFontRun> fonts;

    /// Whether what the library selected is all that the page has, and which character stands
    /// where. On a page that is read from the right a selection begins and ends somewhere in the
    /// middle, or is empty; and the library's marks have no boxes.
    [[nodiscard]] bool areAll() const {
        return !boxes.empty() && boxes.size() == characters.size() &&
               std::none_of(characters.begin(), characters.end(), isPdfDirectionMark);
    }

    /// Says in which font the characters up to `end` are.
    void addFont(std::string_view name, double size, std::size_t end) {
        if (!fonts.empty() && fonts.back().name == name && fonts.back().size == size) {
            fonts.back().end = end;
            return;
        }
        if (names_.empty() || names_.front() != name) {
            names_.emplace_front(name);
        }
        fonts.push_back({end, names_.front(), size});
    }

private:
    /// What the runs' names lie in.
    std::forward_list<std::string> names_;
};
