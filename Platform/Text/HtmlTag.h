// One tag of a page, as its author wrote it.
//
// Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// How a page's ways differ from those of XML.
enum class HtmlSyntax : bool { Html, Xml };

/// What separates the parts of a tag.
inline constexpr std::string_view kHtmlBlanks = " \t\n\f\r";

/// A tag and its attributes, in the order of the page, which it is a view of; references are not
/// resolved.
struct HtmlTag {
    HtmlTag() = default;
    HtmlTag(const HtmlTag&) = delete;
    HtmlTag& operator=(const HtmlTag&) = delete;
    ~HtmlTag() = default;

    struct Attribute {
        std::string_view name;
        std::string_view value;
    };
    /// In lower case, as those of the attributes are.
    std::string_view name;
    bool isEnd = false;
    /// Whether a slash stands before its end.
    bool isEmptyElement = false;
    /// The first of each name that the reader knows; the others mean nothing for the text.
    std::vector<Attribute> attributes;
    /// Where the name lies if the page has capitals in it.
    std::string lowercaseName;

    /// The value of an attribute; null when there is none.
    [[nodiscard]] const std::string_view* valueOf(std::string_view attribute) const;
};

/// Whether a tag may begin at the start of `text`: "<" or "</" and a letter.
[[nodiscard]] bool startsHtmlTag(std::string_view text);

/// Reads the tag that begins at the start of `text` and returns its length; 0 when it has no end.
///
/// Requires: startsHtmlTag.
[[nodiscard]] std::size_t readHtmlTag(std::string_view text, HtmlTag& tag);

}  // namespace platform
