#include "Platform/Text/HtmlStartTag.h"

#include <algorithm>
#include <array>

namespace platform {
namespace {

bool isAmong(std::string_view name, std::string_view first, std::string_view second,
             std::string_view third = {}) {
    return name == first || name == second || name == third;
}

/// Whether an attribute means something to an element.
bool hasMeaning(std::string_view name, const HtmlKind& kind) {
    if (isAmong(name, "hidden", "style")) {
        return true;
    }
    switch (kind.role) {
        case HtmlRole::Inline:
            return kind.style == HtmlStyle::Link && name == "href";
        case HtmlRole::Control:
        case HtmlRole::Break:
            return false;
        case HtmlRole::Image:
            return name == "alt";
        case HtmlRole::Input:
            return isAmong(name, "alt", "type", "value");
        default:
            break;
    }
    if (isAmong(name, "align", "dir")) {
        return true;
    }
    switch (kind.role) {
        case HtmlRole::List:
        case HtmlRole::NumberedList:
            return isAmong(name, "type", "start", "reversed");
        case HtmlRole::Item:
            return isAmong(name, "type", "value");
        case HtmlRole::Dialog:
            return name == "open";
        case HtmlRole::Options:
            return name == "label";
        default:
            return false;
    }
}

using Bytes = std::array<bool, 256>;

/// The bytes that can be written as they are.
constexpr Bytes plainBytes(std::string_view signsOfMarkup) {
    Bytes isPlain{};
    isPlain.fill(true);
    for (std::size_t control = 0; control < ' '; ++control) {
        isPlain[control] = control == '\t' || control == '\n' || control == '\r';
    }
    for (const char sign : signsOfMarkup) {
        isPlain[static_cast<unsigned char>(sign)] = false;
    }
    return isPlain;
}
constexpr Bytes kPlainInText = plainBytes("&<");
constexpr Bytes kPlainInQuotes = plainBytes("&<\"");

std::size_t lengthOf(std::string_view text, const Bytes& isPlain) {
    const auto* const end = std::find_if_not(text.begin(), text.end(), [&](char byte) {
        return isPlain[static_cast<unsigned char>(byte)];
    });
    return static_cast<std::size_t>(end - text.begin());
}

/// What is written for a byte that is not plain.
std::string_view escapeOf(char byte) {
    switch (byte) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '"':
            return "&quot;";
        case '\f':
        case '\v':
            return " ";
        default:
            return {};
    }
}

void appendValue(std::string_view value, std::string& written) {
    while (!value.empty()) {
        const std::size_t length = std::min(value.find('&'), value.size());
        appendEscapedHtml(value.substr(0, length), written);
        value.remove_prefix(length);
        if (!value.empty()) {
            value.remove_prefix(appendHtmlReference(value, HtmlReferencePlace::Attribute, written));
        }
    }
}

}  // namespace

bool appendHtmlStartTag(const HtmlTag& tag, const HtmlKind& kind, std::string& written) {
    bool hasAny = false;
    written += '<';
    written += kind.name();
    for (const HtmlTag::Attribute& attribute : tag.attributes) {
        if (!hasMeaning(attribute.name, kind)) {
            continue;
        }
        hasAny = true;
        written += ' ';
        written += attribute.name;
        written += "=\"";
        appendValue(attribute.value, written);
        written += '"';
    }
    return hasAny;
}

std::size_t lengthOfPlainHtml(std::string_view text) {
    return lengthOf(text, kPlainInText);
}

std::size_t appendHtmlReference(std::string_view text, HtmlReferencePlace place,
                                std::string& written) {
    std::string characters;
    const std::size_t length = readHtmlReference(text, place, characters);
    appendEscapedHtml(length == 0 ? "&" : std::string_view(characters), written);
    return std::max<std::size_t>(length, 1);
}

void appendEscapedHtml(std::string_view text, std::string& written) {
    while (!text.empty()) {
        const std::size_t length = lengthOf(text, kPlainInQuotes);
        written += text.substr(0, length);
        text.remove_prefix(length);
        if (!text.empty()) {
            written += escapeOf(text.front());
            text.remove_prefix(1);
        }
    }
}

}  // namespace platform
