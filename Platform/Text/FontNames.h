// PostScript names of fonts and the families that they belong to.
//
// Nobody looks at which fonts a machine has: names are made and read by the usual rule, a family
// without blanks and its style behind a hyphen. Pure functions; any thread at once.

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// A family, or a font of it, and how it is to look.
struct FontFace {
    std::string family;
    bool isBold = false;
    bool isItalic = false;

    friend bool operator==(const FontFace&, const FontFace&) = default;
};

/// The PostScript name of the font that looks like `face`: "TimesNewRoman-Bold" for "Times New
/// Roman" in bold letters. A name that tells a style already only gets what it lacks.
[[nodiscard]] std::string fontNameOf(const FontFace& face);

/// The family of a PostScript name, and the style that the name tells.
[[nodiscard]] FontFace fontFaceOf(std::string_view fontName);

}  // namespace platform
