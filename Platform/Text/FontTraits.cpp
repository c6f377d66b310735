#include "Platform/Text/FontTraits.h"

#include <algorithm>
#include <array>

namespace platform {
namespace {

constexpr std::array kBoldStyles = {
    std::string_view("Bold"),
    std::string_view("Black"),
    std::string_view("Heavy"),
    std::string_view("Demi"),
};
constexpr std::array kItalicStyles = {
    std::string_view("Italic"),
    std::string_view("Oblique"),
    std::string_view("Kursiv"),
};

template <class Styles>
bool namesOneOf(std::string_view style, const Styles& styles) {
    return std::any_of(styles.begin(), styles.end(), [style](std::string_view name) {
        return style.find(name) != std::string_view::npos;
    });
}

/// The name without a style that another one can take the place of.
std::string_view familyIn(std::string_view fontName) {
    constexpr std::array kStyles = {std::string_view("Regular"),    std::string_view("Roman"),
                                    std::string_view("Bold"),       std::string_view("Italic"),
                                    std::string_view("Oblique"),    std::string_view("BoldItalic"),
                                    std::string_view("BoldOblique")};
    const std::size_t hyphen = fontName.rfind('-');
    const bool hasStyle =
        hyphen != std::string_view::npos &&
        std::find(kStyles.begin(), kStyles.end(), fontName.substr(hyphen + 1)) != kStyles.end();
    return hasStyle ? fontName.substr(0, hyphen) : fontName;
}

/// Whether a family calls its slanted fonts oblique.
bool isOblique(std::string_view family) {
    return family == "Helvetica" || family == "Courier";
}

}  // namespace

FontTraits fontTraitsOf(std::string_view fontName) {
    const std::size_t hyphen = fontName.rfind('-');
    if (hyphen == std::string_view::npos) {
        return {};
    }
    const std::string_view style = fontName.substr(hyphen + 1);
    return {namesOneOf(style, kBoldStyles), namesOneOf(style, kItalicStyles)};
}

std::string fontNameWithTraits(std::string_view fontName, FontTraits traits) {
    const FontTraits stated = fontTraitsOf(fontName);
    if (stated.isBold >= traits.isBold && stated.isItalic >= traits.isItalic) {
        return std::string(fontName);
    }
    const std::string_view family = familyIn(fontName);
    std::string name = std::string(family) + "-";
    name += traits.isBold || stated.isBold ? "Bold" : "";
    if (traits.isItalic || stated.isItalic) {
        name += isOblique(family) ? "Oblique" : "Italic";
    }
    return name;
}

}  // namespace platform
