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

bool isCapital(char byte) {
    return byte >= 'A' && byte <= 'Z';
}

// Kinds of bytes that mean something in a tag.
enum ByteKind : unsigned { kBlank = 1, kSlash = 2, kEnd = 4, kEquals = 8 };

constexpr auto kKinds = [] {
    std::array<unsigned char, 256> kinds{};
    for (const char blank : kHtmlBlanks) {
        kinds[static_cast<unsigned char>(blank)] = kBlank;
    }
    kinds['/'] = kSlash;
    kinds['>'] = kEnd;
    kinds['='] = kEquals;
    return kinds;
}();

/// Takes the parts of a tag off its start.
class Cursor {
public:
    explicit Cursor(std::string_view text) : text_(text) {}

    [[nodiscard]] bool isAtEnd() const { return at_ == text_.size(); }
    [[nodiscard]] char next() const { return text_[at_]; }
    [[nodiscard]] std::size_t position() const { return at_; }
    void skip() { ++at_; }
    void skipBlanks() {
        while (!isAtEnd() && (kind() & kBlank) != 0) {
            ++at_;
        }
    }
    /// Takes what stands before the next byte of one of the kinds.
    std::string_view takeUntil(unsigned kinds) {
        const std::size_t start = at_;
        while (!isAtEnd() && (kind() & kinds) == 0) {
            ++at_;
        }
        return text_.substr(start, at_ - start);
    }
    /// Takes what stands between quotes, the second of which may be missing.
    std::string_view takeQuoted() {
        const std::size_t start = at_ + 1;
        const std::size_t end = std::min(text_.find(text_[at_], start), text_.size());
        at_ = std::min(end + 1, text_.size());
        return text_.substr(start, end - start);
    }

private:
    [[nodiscard]] unsigned kind() const { return kKinds[static_cast<unsigned char>(text_[at_])]; }

    std::string_view text_;
    std::size_t at_ = 0;
};

void setLowercase(std::string& lower, std::string_view name) {
    lower.assign(name);
    for (char& letter : lower) {
        letter = asciiLowercase(letter);
    }
}

/// What stands behind the name of an attribute and an equals sign.
std::string_view takeValue(Cursor& cursor) {
    cursor.skipBlanks();
    const bool isQuoted = !cursor.isAtEnd() && (cursor.next() == '"' || cursor.next() == '\'');
    return isQuoted ? cursor.takeQuoted() : cursor.takeUntil(kBlank | kEnd);
}

void takeAttribute(Cursor& cursor, HtmlTag& tag, std::string& name) {
    constexpr std::size_t kLongest = 16;
    const std::size_t start = cursor.position();
    // An equals sign may begin a name, but not end one there.
    std::string_view written = cursor.takeUntil(kBlank | kSlash | kEnd | kEquals);
    if (cursor.position() == start) {
        cursor.skip();
        written = {};
    }
    cursor.skipBlanks();
    std::string_view value;
    if (!cursor.isAtEnd() && cursor.next() == '=') {
        cursor.skip();
        value = takeValue(cursor);
    }
    if (written.size() > kLongest || tag.isEnd) {
        return;
    }
    setLowercase(name, written);
    const auto* const known =
        std::lower_bound(std::begin(kKnownAttributes), std::end(kKnownAttributes), name);
    if (known != std::end(kKnownAttributes) && *known == name && tag.valueOf(*known) == nullptr) {
        tag.attributes.push_back({*known, value});
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
    tag.name = cursor.takeUntil(kBlank | kSlash | kEnd);
    if (std::any_of(tag.name.begin(), tag.name.end(), isCapital)) {
        setLowercase(tag.lowercaseName, tag.name);
        tag.name = tag.lowercaseName;
    }
    tag.attributes.clear();
    tag.isEmptyElement = false;
    std::string name;
    while (!cursor.isAtEnd()) {
        cursor.skipBlanks();
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
