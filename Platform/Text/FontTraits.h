// What the name of a font tells about it, and the names of its relatives.
//
// Pure functions; any thread at once.

#pragma once

#include <string>
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

/// The name of a font of the same family that has the traits, too: "Helvetica-BoldOblique" for
/// "Helvetica-Bold" made italic. The name itself where it states them all.
///
/// Nobody looks at which fonts a machine has; names are made by the usual rule.
[[nodiscard]] std::string fontNameWithTraits(std::string_view fontName, FontTraits traits);

}  // namespace platform
