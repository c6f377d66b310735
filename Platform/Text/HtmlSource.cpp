#include "Platform/Text/HtmlSource.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "Platform/Text/HtmlElements.h"
#include "Platform/Text/HtmlReferences.h"
#include "Platform/Text/HtmlSkipping.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

/// How a page's ways differ from those of XML.
enum class HtmlSyntax : bool { Html, Xml };

constexpr auto kSpecials = [] {
    std::array<bool, 256> specials{};
    for (const char special : {'\0', '\f', '&', '<'}) {
        specials[static_cast<unsigned char>(special)] = true;
    }
    return specials;
}();

constexpr auto kNameSigns = [] {
    std::array<bool, 256> signs{};
    for (const char sign : std::string_view("abcdefghijklmnopqrstuvwxyz0123456789:-_.")) {
        signs[static_cast<unsigned char>(sign)] = true;
    }
    return signs;
}();

std::size_t lengthOfPlainText(std::string_view text) {
    const auto* const end = std::find_if(text.begin(), text.end(), [](char byte) {
        return kSpecials[static_cast<unsigned char>(byte)];
    });
    return static_cast<std::size_t>(end - text.begin());
}

/// The number of bytes, at most `most`, that end with a character. Requires: `most` > 3.
std::size_t lengthOfCharacters(std::string_view utf8, std::size_t most) {
    std::size_t length = std::min(most, utf8.size());
    while (length < utf8.size() && (static_cast<unsigned char>(utf8[length]) & 0xC0U) == 0x80U) {
        --length;
    }
    return length;
}

class Writer {
public:
    Writer(std::string_view page, HtmlStream& stream)
        : rest_(page),
          stream_(stream),
          syntax_(page.starts_with("<?xml") ? HtmlSyntax::Xml : HtmlSyntax::Html) {}

    void write() {
        while (!rest_.empty()) {
            writePlainText();
            if (rest_.empty()) {
                return;
            }
            if (rest_.front() == '<') {
                writeMarkup();
            } else {
                writeSpecial();
            }
        }
    }

private:
    void writePlainText() {
        const std::size_t length = lengthOfPlainText(rest_);
        writeText(rest_.substr(0, length));
        rest_.remove_prefix(length);
    }

    /// Writes text without signs of markup.
    void writeText(std::string_view text) {
        while (!text.empty()) {
            const std::size_t length = lengthOfCharacters(text, kLongestText / 2);
            expectText(length);
            stream_.write(text.substr(0, length));
            text.remove_prefix(length);
        }
    }

    /// Has to be told before text is written. The parser keeps all of it until markup follows.
    void expectText(std::size_t length) {
        if (textSinceTag_ + length > kLongestText) {
            stream_.settle();
            textSinceTag_ = 0;
        }
        textSinceTag_ += length;
    }

    void writeMarkup() {
        if (startsHtmlTag(rest_)) {
            writeTag();
        } else if (syntax_ == HtmlSyntax::Xml && rest_.starts_with(kCdata)) {
            writeCdata();
        } else if (const std::size_t length = htmlCommentLength(rest_)) {
            rest_.remove_prefix(length);
        } else {
            writeSpecial();
        }
    }

    /// A character that cannot stand for itself.
    void writeSpecial() {
        std::size_t length = 1;
        expectText(kLongestReference);
        if (rest_.front() == '&') {
            length = writeReference(rest_, HtmlReferencePlace::Text);
        } else if (rest_.front() == '<') {
            stream_.write("&lt;");
        } else if (rest_.front() == '\f') {
            stream_.write(" ");
        }
        rest_.remove_prefix(length);
    }

    std::size_t writeReference(std::string_view text, HtmlReferencePlace place) {
        characters_.clear();
        const std::size_t length = readHtmlReference(text, place, characters_);
        if (length == 0) {
            stream_.write("&amp;");
            return 1;
        }
        writeEscaped(characters_);
        return length;
    }

    /// Writes characters, the signs of markup by reference.
    void writeEscaped(std::string_view text) {
        while (!text.empty()) {
            const std::size_t length = std::min(text.find_first_of("&<\""), text.size());
            stream_.write(text.substr(0, length));
            text.remove_prefix(length);
            if (!text.empty()) {
                stream_.write(text.front() == '&'   ? "&amp;"
                              : text.front() == '<' ? "&lt;"
                                                    : "&quot;");
                text.remove_prefix(1);
            }
        }
    }

    void writeCdata() {
        constexpr std::string_view kEnd = "]]>";
        rest_.remove_prefix(kCdata.size());
        const std::size_t length = std::min(rest_.find(kEnd), rest_.size());
        writeRaw(rest_.substr(0, length), References::No);
        rest_.remove_prefix(std::min(length + kEnd.size(), rest_.size()));
    }

    void writeTag() {
        const std::size_t length = readHtmlTag(rest_, tag_);
        rest_.remove_prefix(length == 0 ? rest_.size() : length);
        if (length == 0) {
            return;
        }
        if (tag_.isEnd) {
            writeEndTag();
            return;
        }
        const bool isClosed = tag_.isEmptyElement && syntax_ == HtmlSyntax::Xml;
        if (isDroppedHtmlElement(tag_.name)) {
            rest_.remove_prefix(isClosed ? 0 : lengthToHtmlEndTag(rest_, tag_.name));
            return;
        }
        writeStartTag();
        if (isRawHtmlElement(tag_.name) && !isClosed) {
            writeRawContents();
        }
    }

    void writeStartTag() {
        textSinceTag_ = 0;
        stream_.write("<");
        writeName();
        isParagraphOpen_ = isParagraphOpen_ || tag_.name == "p";
        for (const HtmlTag::Attribute& attribute : tag_.attributes) {
            stream_.write(" ");
            stream_.write(attribute.name);
            stream_.write("=\"");
            writeValue(attribute.value);
            stream_.write("\"");
        }
        stream_.write(tag_.isEmptyElement && mayBeEmpty() ? "/>" : ">");
    }

    /// Whether a slash in the tag counts: in a page that is no XML, in pictures and formulas alone.
    [[nodiscard]] bool mayBeEmpty() const {
        const HtmlElement* const element = htmlElementNamed(tag_.name);
        return syntax_ == HtmlSyntax::Xml || element == nullptr || element->isForeign;
    }

    void writeEndTag() {
        // What stands behind the end of the body belongs to it, too.
        const std::string_view name = tag_.name;
        if (name == "body" || name == "html" || isDroppedHtmlElement(name)) {
            return;
        }
        if (name == "br") {
            stream_.write("<br>");
        } else if (name == "p" && !std::exchange(isParagraphOpen_, false)) {
            stream_.write("<p></p>");
        } else {
            stream_.write("</");
            writeName();
            stream_.write(">");
        }
    }

    /// The name, as far as the parser takes it for one.
    void writeName() {
        constexpr std::size_t kLongest = 64;
        const std::string_view name = std::string_view(tag_.name).substr(0, kLongest);
        const auto* const end = std::find_if_not(name.begin(), name.end(), [](char byte) {
            return kNameSigns[static_cast<unsigned char>(byte)];
        });
        stream_.write(name.substr(0, static_cast<std::size_t>(end - name.begin())));
    }

    void writeValue(std::string_view value) {
        while (!value.empty()) {
            const std::size_t length = value.find_first_of(std::string_view("&\0", 2));
            writeEscaped(value.substr(0, length));
            value.remove_prefix(std::min(length, value.size()));
            if (!value.empty()) {
                value.remove_prefix(value.front() == '&'
                                        ? writeReference(value, HtmlReferencePlace::Attribute)
                                        : 1);
            }
        }
    }

    void writeRawContents() {
        const bool hasEnd = tag_.name != "plaintext";
        const std::size_t length = hasEnd ? lengthToHtmlEndTag(rest_, tag_.name) : rest_.size();
        const bool hasReferences = tag_.name == "textarea";
        writeRaw(rest_.substr(0, length), hasReferences ? References::Yes : References::No);
        rest_.remove_prefix(length);
    }

    enum class References : bool { No, Yes };

    void writeRaw(std::string_view text, References references) {
        while (!text.empty()) {
            const std::size_t length = lengthOfPlainText(text);
            writeText(text.substr(0, length));
            text.remove_prefix(length);
            if (text.empty()) {
                return;
            }
            std::size_t size = 1;
            expectText(kLongestReference);
            if (text.front() == '&' && references == References::Yes) {
                size = writeReference(text, HtmlReferencePlace::Text);
            } else if (text.front() != '\0') {
                writeEscaped(text.front() == '\f' ? " " : text.substr(0, 1));
            }
            text.remove_prefix(size);
        }
    }

    static constexpr std::size_t kLongestText = 65536;
    /// More than what one reference becomes.
    static constexpr std::size_t kLongestReference = 16;
    static constexpr std::string_view kCdata = "<![CDATA[";

    std::string_view rest_;
    HtmlStream& stream_;
    const HtmlSyntax syntax_;
    HtmlTag tag_;
    std::string characters_;
    bool isParagraphOpen_ = false;
    std::size_t textSinceTag_ = 0;
};

}  // namespace

void writeHtmlSource(std::string_view page, HtmlStream& stream) {
    Writer(page, stream).write();
    stream.finish();
}

}  // namespace platform
