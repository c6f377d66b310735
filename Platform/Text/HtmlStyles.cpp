#include "Platform/Text/HtmlStyles.h"

#include <algorithm>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

std::string_view trimmed(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kHtmlBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kHtmlBlanks) + 1);
}

/// The value's first word; what may stand behind it, "!important" above all, means nothing here.
std::string_view firstWord(std::string_view value) {
    value = trimmed(value);
    return value.substr(0, value.find_first_of(" \t\n\f\r!"));
}

HtmlDisplay displayOf(std::string_view value) {
    struct Row {
        std::string_view value;
        HtmlDisplay display;
    };
    constexpr Row kRows[] = {
        {"none", HtmlDisplay::None},       {"block", HtmlDisplay::Block},
        {"flex", HtmlDisplay::Block},      {"grid", HtmlDisplay::Block},
        {"list-item", HtmlDisplay::Block}, {"inline", HtmlDisplay::Inline},
    };
    for (const Row& row : kRows) {
        if (equalIgnoringAsciiCase(value, row.value)) {
            return row.display;
        }
    }
    return HtmlDisplay::AsItIs;
}

void apply(HtmlInlineStyle& style, std::string_view name, std::string_view value) {
    if (equalIgnoringAsciiCase(name, "display")) {
        style.display = displayOf(value);
    } else if (equalIgnoringAsciiCase(name, "white-space")) {
        constexpr std::string_view kPreformatted = "pre";
        style.isPreformatted =
            equalIgnoringAsciiCase(value.substr(0, kPreformatted.size()), kPreformatted);
    } else if (equalIgnoringAsciiCase(name, "list-style") ||
               equalIgnoringAsciiCase(name, "list-style-type")) {
        style.hasNoMarker = equalIgnoringAsciiCase(value, "none");
    }
}

}  // namespace

HtmlInlineStyle htmlInlineStyleOf(std::string_view declarations) {
    HtmlInlineStyle style;
    while (!declarations.empty()) {
        const std::string_view one = declarations.substr(0, declarations.find(';'));
        declarations.remove_prefix(std::min(one.size() + 1, declarations.size()));
        const std::size_t colon = one.find(':');
        if (colon != std::string_view::npos) {
            apply(style, trimmed(one.substr(0, colon)), firstWord(one.substr(colon + 1)));
        }
    }
    return style;
}

}  // namespace platform
