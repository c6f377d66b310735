// The fonts of characters, by where these stand on a page.
//
// One thread at a time.

#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Text/Modules/PdfContents.h"

namespace platform {

class PdfFontsByPlace {
public:
    /// Adds a font and returns its number.
    std::size_t add(std::string_view name, double size) {
        if (fonts_.empty() || fonts_.back().name != name || fonts_.back().size != size) {
            fonts_.push_back({std::string(name), size});
        }
        return fonts_.size() - 1;
    }

    /// Notes that the character of a box is in a font.
    void place(const PdfBox& box, std::size_t font) { places_.emplace_back(placeOf(box), font); }

    /// Gives the characters of a page their fonts. One without has that of the character before it.
    void giveTo(PdfPageContents& contents) {
        if (places_.empty()) {
            return;
        }
        std::sort(places_.begin(), places_.end());
        std::size_t font = places_.front().second;
        for (std::size_t i = 0; i < contents.boxes.size(); i++) {
            const Place place = placeOf(contents.boxes[i]);
            const auto found = std::lower_bound(places_.begin(), places_.end(),
                                                std::pair<Place, std::size_t>(place, 0));
            if (found != places_.end() && found->first == place) {
                font = found->second;
            }
            contents.addFont(fonts_[font].name, fonts_[font].size, i + 1);
        }
    }

private:
    struct Font {
        std::string name;
        double size = 0;
    };
    using Place = std::pair<float, float>;

    /// The upper left corner; what is no number stands at the edge.
    static Place placeOf(const PdfBox& box) {
        const auto number = [](float coordinate) {
            return std::isnan(coordinate) ? static_cast<float>(PdfBox::kEdge) : coordinate;
        };
        return {number(box.left), number(box.top)};
    }

    std::vector<Font> fonts_;
    std::vector<std::pair<Place, std::size_t>> places_;
};

}  // namespace platform
