#include "Platform/Text/HtmlItems.h"

#include <algorithm>

#include "Platform/Text/HtmlElements.h"
#include "Platform/Text/HtmlSkipping.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

bool isList(const HtmlElement* element) {
    return element != nullptr &&
           (element->kind->role == HtmlRole::List || element->kind->role == HtmlRole::NumberedList);
}

/// What an element holds that has no tags.
std::size_t lengthOfContents(std::string_view rest, const HtmlTag& tag,
                             const HtmlElement* element) {
    const bool hasTags =
        tag.isEnd || element == nullptr || (element->rules & (kHtmlDropped | kHtmlRaw)) == 0;
    return hasTags ? 0 : lengthToHtmlEndTag(rest, tag.name);
}

}  // namespace

HtmlItems countHtmlItems(std::string_view text) {
    HtmlItems items;
    std::size_t depth = 1;
    HtmlTag tag;
    while (depth > 0) {
        items.length = std::min(text.find('<', items.length), text.size());
        const std::string_view rest = text.substr(items.length);
        if (rest.empty()) {
            break;
        }
        if (!startsHtmlTag(rest)) {
            items.length += std::max<std::size_t>(htmlCommentLength(rest, HtmlSyntax::Html), 1);
            continue;
        }
        const std::size_t size = readHtmlTag(rest, tag);
        if (size == 0) {
            items.length = text.size();
            break;
        }
        const HtmlElement* const element = htmlElementNamed(tag.name);
        items.length += size + lengthOfContents(rest.substr(size), tag, element);
        if (isList(element)) {
            depth = tag.isEnd ? depth - 1 : depth + 1;
        } else if (element != nullptr && element->group == HtmlGroup::Item && !tag.isEnd) {
            items.count += depth == 1 ? 1 : 0;
        }
    }
    return items;
}

}  // namespace platform
