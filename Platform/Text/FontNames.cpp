#include "Platform/Text/FontNames.h"

namespace platform {
namespace {

/// Whether a family's slanted fonts are called oblique.
bool isOblique(std::string_view family) {
    return family == "Helvetica" || family == "Courier" || family == "HelveticaNeue";
}

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

std::string withoutBlanks(std::string name) {
    std::erase(name, ' ');
    return name;
}

std::string styleOf(const FontFace& face) {
    std::string style = face.isBold ? "Bold" : "";
    if (face.isItalic) {
        style += isOblique(face.family) ? "Oblique" : "Italic";
    }
    return style;
}

}  // namespace

std::string fontNameOf(const FontFace& face) {
    FontFace wanted = fontFaceOf(face.family);
    const bool tellsAll = wanted.isBold >= face.isBold && wanted.isItalic >= face.isItalic &&
                          wanted.family != "Times";
    if (tellsAll) {
        return withoutBlanks(face.family);
    }
    wanted.isBold |= face.isBold;
    wanted.isItalic |= face.isItalic;
    const std::string style = styleOf(wanted);
    return withoutBlanks(wanted.family) + "-" + (style.empty() ? "Roman" : style);
}

FontFace fontFaceOf(std::string_view fontName) {
    const std::size_t hyphen = fontName.rfind('-');
    if (hyphen != std::string_view::npos && hyphen != 0) {
        const std::string_view style = fontName.substr(hyphen + 1);
        const bool isBold = contains(style, "Bold");
        const bool isItalic = contains(style, "Italic") || contains(style, "Oblique");
        if (isBold || isItalic || style == "Roman" || style == "Regular") {
            return {std::string(fontName.substr(0, hyphen)), isBold, isItalic};
        }
    }
    return {std::string(fontName)};
}

}  // namespace platform
