// What the name of a font tells about it.
//
// Pure functions; any thread at once.

#pragma once

#include <string_view>

namespace platform {

/// Whether a font is bold, and whether it is italic.
struct FontTraits {
    bool isBold = false;
    bool isItalic = false;

    friend bool operator==(const FontTraits&, const FontTraits&) = default;
};

/// The traits that a PostScript name states behind its hyphen, as "Helvetica-BoldOblique" does.
[[nodiscard]] FontTraits fontTraitsOf(std::string_view fontName);

}  // namespace platform
