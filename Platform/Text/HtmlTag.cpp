#include "Platform/Text/HtmlTag.h"

#include <algorithm>
#include <array>

#include "Platform/Foundation/AsciiCase.h"

namespace platform {
namespace {

using namespace std::string_view_literals;

/// In the order of their bytes.
constexpr std::string_view kKnownAttributes[] = {
    "align"sv,    "alt"sv,   "charset"sv,    "content"sv, "dir"sv,
    "hidden"sv,   "href"sv,  "http-equiv"sv, "label"sv,   "open"sv,
    "reversed"sv, "start"sv, "style"sv,      "type"sv,    "value"sv,
};

bool isLetter(char byte) {
    const char lower = asciiLowercase(byte);
    return lower >= 'a' && lower <= 'z';
}

/// Takes the parts of a tag off its start.
class Cursor {
public:
    explicit Cursor(std::string_view text) : text_(text) {}

    [[nodiscard]] bool isAtEnd() const { return at_ == text_.size(); }
    [[nodiscard]] char next() const { return text_[at_]; }
    [[nodiscard]] std::size_t position() const { return at_; }
    void skip() { ++at_; }
    void skipAll(std::string_view bytes) {
        at_ = std::min(text_.find_first_not_of(bytes, at_), text_.size());
    }
    std::string_view takeUntil(std::string_view bytes) {
        const std::size_t start = at_;
        at_ = std::min(text_.find_first_of(bytes, at_), text_.size());
        return text_.substr(start, at_ - start);
    }

private:
    std::string_view text_;
    std::size_t at_ = 0;
};

void setLowercase(std::string& lower, std::string_view name) {
    lower.assign(name);
    std::transform(lower.begin(), lower.end(), lower.begin(), asciiLowercase);
}

/// What stands behind the name of an attribute and an equals sign.
std::string_view takeValue(Cursor& cursor) {
    cursor.skipAll(kHtmlBlanks);
    if (cursor.isAtEnd() || (cursor.next() != '"' && cursor.next() != '\'')) {
        return cursor.takeUntil(" \t\n\f\r>");
    }
    const char quote = cursor.next();
    cursor.skip();
    const std::string_view value = cursor.takeUntil({&quote, 1});
    if (!cursor.isAtEnd()) {
        cursor.skip();
    }
    return value;
}

void takeAttribute(Cursor& cursor, HtmlTag& tag, std::string& name) {
    constexpr std::size_t kLongest = 16;
    const std::size_t start = cursor.position();
    // An equals sign may begin a name, but not end one there.
    std::string_view written = cursor.takeUntil(" \t\n\f\r/>="sv);
    if (cursor.position() == start) {
        cursor.skip();
        written = {};
    }
    cursor.skipAll(kHtmlBlanks);
    std::string_view value;
    if (!cursor.isAtEnd() && cursor.next() == '=') {
        cursor.skip();
        value = takeValue(cursor);
    }
    if (written.size() > kLongest || tag.isEnd) {
        return;
    }
    setLowercase(name, written);
    if (std::binary_search(std::begin(kKnownAttributes), std::end(kKnownAttributes),
                           std::string_view(name)) &&
        tag.valueOf(name) == nullptr) {
        tag.attributes.push_back({name, value});
    }
}

}  // namespace

const std::string_view* HtmlTag::valueOf(std::string_view attribute) const {
    const auto found = std::find_if(attributes.begin(), attributes.end(),
                                    [&](const Attribute& each) { return each.name == attribute; });
    return found != attributes.end() ? &found->value : nullptr;
}

bool startsHtmlTag(std::string_view text) {
    const std::size_t letter = text.starts_with("</") ? 2 : 1;
    return text.size() > letter && text.front() == '<' && isLetter(text[letter]);
}

std::size_t readHtmlTag(std::string_view text, HtmlTag& tag) {
    Cursor cursor(text);
    cursor.skip();
    tag.isEnd = cursor.next() == '/';
    if (tag.isEnd) {
        cursor.skip();
    }
    setLowercase(tag.name, cursor.takeUntil(" \t\n\f\r/>"sv));
    tag.attributes.clear();
    tag.isEmptyElement = false;
    std::string name;
    while (!cursor.isAtEnd()) {
        cursor.skipAll(kHtmlBlanks);
        if (cursor.isAtEnd()) {
            return 0;
        }
        if (cursor.next() == '>') {
            return cursor.position() + 1;
        }
        tag.isEmptyElement = cursor.next() == '/';
        if (tag.isEmptyElement) {
            cursor.skip();
        } else {
            takeAttribute(cursor, tag, name);
        }
    }
    return 0;
}

}  // namespace platform
