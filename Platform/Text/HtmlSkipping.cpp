#include "Platform/Text/HtmlSkipping.h"

#include <algorithm>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

std::size_t behind(std::string_view text, std::string_view end, std::size_t from) {
    const std::size_t place = text.find(end, from);
    return place == std::string_view::npos ? text.size() : place + end.size();
}

/// A comment ends with "-->", "--!>" or, where it has just begun, with ">" or "->".
std::size_t lengthOfComment(std::string_view text) {
    constexpr std::size_t kStart = 4;
    if (text.substr(kStart).starts_with('>')) {
        return kStart + 1;
    }
    if (text.substr(kStart).starts_with("->")) {
        return kStart + 2;
    }
    for (std::size_t at = text.find("--", kStart); at < text.size(); at = text.find("--", at + 1)) {
        const std::string_view rest = text.substr(at + 2);
        if (rest.starts_with('>')) {
            return at + 3;
        }
        if (rest.starts_with("!>")) {
            return at + 4;
        }
    }
    return text.size();
}

template <std::size_t kCount>
bool isAmong(const std::string_view (&names)[kCount], std::string_view name) {
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

}  // namespace

std::size_t htmlCommentLength(std::string_view text) {
    if (text.starts_with("<!--")) {
        return lengthOfComment(text);
    }
    const bool isOther = text.starts_with("<!") || text.starts_with("<?") || text.starts_with("</");
    return isOther ? behind(text, ">", 2) : 0;
}

bool isDroppedHtmlElement(std::string_view name) {
    constexpr std::string_view kNames[] = {"script", "style",   "title",
                                           "iframe", "noembed", "noframes"};
    return isAmong(kNames, name);
}

bool isRawHtmlElement(std::string_view name) {
    constexpr std::string_view kNames[] = {"textarea", "xmp", "plaintext"};
    return isAmong(kNames, name);
}

std::size_t lengthToHtmlEndTag(std::string_view text, std::string_view name) {
    constexpr std::string_view kBehindName = " \t\n\f\r/>";
    for (std::size_t at = text.find("</"); at < text.size(); at = text.find("</", at + 1)) {
        const std::string_view rest = text.substr(at + 2);
        if (equalIgnoringAsciiCase(rest.substr(0, name.size()), name) &&
            rest.size() > name.size() &&
            kBehindName.find(rest[name.size()]) != std::string_view::npos) {
            return at;
        }
    }
    return text.size();
}

}  // namespace platform
