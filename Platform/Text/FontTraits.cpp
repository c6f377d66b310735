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

}  // namespace

FontTraits fontTraitsOf(std::string_view fontName) {
    const std::size_t hyphen = fontName.rfind('-');
    if (hyphen == std::string_view::npos) {
        return {};
    }
    const std::string_view style = fontName.substr(hyphen + 1);
    return {namesOneOf(style, kBoldStyles), namesOneOf(style, kItalicStyles)};
}

}  // namespace platform
