#include "Platform/Text/HtmlSkipping.h"

#include <cstdint>

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

/// A document type that declares entities and the like has them between brackets.
std::size_t lengthOfDocumentType(std::string_view text) {
    const std::size_t plain = behind(text, ">", 2);
    const std::size_t bracket = text.substr(0, plain).find('[');
    if (bracket == std::string_view::npos) {
        return plain;
    }
    for (std::size_t at = text.find(']', bracket); at < text.size(); at = text.find(']', at + 1)) {
        const std::size_t end = text.find_first_not_of(kHtmlBlanks, at + 1);
        if (end < text.size() && text[end] == '>') {
            return end + 1;
        }
    }
    return text.size();
}

/// Whether the tag of an element, or its end, begins with a name at the start of `text`.
bool startsWithName(std::string_view text, std::string_view name) {
    constexpr std::string_view kBehindName = " \t\n\f\r/>";
    return text.size() > name.size() && equalIgnoringAsciiCase(text.substr(0, name.size()), name) &&
           kBehindName.find(text[name.size()]) != std::string_view::npos;
}

std::size_t lengthToEndTag(std::string_view text, std::string_view name) {
    for (std::size_t at = text.find("</"); at < text.size(); at = text.find("</", at + 1)) {
        if (startsWithName(text.substr(at + 2), name)) {
            return at;
        }
    }
    return text.size();
}

/// Scripts hide themselves in comments, where one that begins has an end of its own.
std::size_t lengthOfScript(std::string_view text) {
    constexpr std::string_view kScript = "script";
    enum class Place : std::uint8_t { Script, Comment, InnerScript };
    Place place = Place::Script;
    std::size_t commentStart = 0;
    for (std::size_t at = text.find_first_of("<-"); at < text.size();
         at = text.find_first_of("<-", at + 1)) {
        const std::string_view rest = text.substr(at);
        if (place == Place::Script && rest.starts_with("<!--")) {
            place = Place::Comment;
            commentStart = at + 2;
        } else if (place != Place::Script && at >= commentStart && rest.starts_with("-->")) {
            place = Place::Script;
        } else if (place == Place::Comment && startsWithName(rest.substr(1), kScript)) {
            place = Place::InnerScript;
        } else if (rest.starts_with("</") && startsWithName(rest.substr(2), kScript)) {
            if (place != Place::InnerScript) {
                return at;
            }
            place = Place::Comment;
        }
    }
    return text.size();
}

}  // namespace

std::size_t htmlCommentLength(std::string_view text, HtmlSyntax syntax) {
    constexpr std::string_view kDocumentType = "<!DOCTYPE";
    if (text.starts_with("<!--")) {
        return lengthOfComment(text);
    }
    if (syntax == HtmlSyntax::Xml && text.starts_with(kDocumentType)) {
        return lengthOfDocumentType(text);
    }
    // The start of an end tag at the end of a page is text.
    const bool isEnd = text.starts_with("</") && text.size() > 2;
    const bool isOther = isEnd || text.starts_with("<!") || text.starts_with("<?");
    return isOther ? behind(text, ">", 2) : 0;
}

std::size_t lengthToHtmlEndTag(std::string_view text, std::string_view name) {
    return name == "script" ? lengthOfScript(text) : lengthToEndTag(text, name);
}

}  // namespace platform
