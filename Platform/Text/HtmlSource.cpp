#include "Platform/Text/HtmlSource.h"

#include <algorithm>
#include <string>

#include "Platform/Text/HtmlItems.h"
#include "Platform/Text/HtmlNesting.h"
#include "Platform/Text/HtmlReferences.h"
#include "Platform/Text/HtmlSkipping.h"
#include "Platform/Text/HtmlStartTag.h"
#include "Platform/Text/HtmlTag.h"

namespace platform {
namespace {

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
          syntax_(page.starts_with("<?xml") ? HtmlSyntax::Xml : HtmlSyntax::Html),
          nesting_(stream, page.size(), syntax_),
          mostAhead_(2 * page.size()) {}

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
        const std::size_t length = lengthOfPlainHtml(rest_);
        writeText(rest_.substr(0, length));
        rest_.remove_prefix(length);
    }

    /// Writes text that can be written as it is.
    void writeText(std::string_view text) {
        nesting_.expectText(text);
        while (!text.empty()) {
            const std::size_t length = lengthOfCharacters(text, HtmlStream::kLongestText / 2);
            stream_.expectText(length);
            stream_.write(text.substr(0, length));
            text.remove_prefix(length);
        }
    }

    void writeMarkup() {
        if (startsHtmlTag(rest_)) {
            writeTag();
        } else if (rest_.starts_with(kCdata) && hasCdata()) {
            writeCdata();
        } else if (const std::size_t length = htmlCommentLength(rest_, syntax_)) {
            rest_.remove_prefix(length);
        } else {
            writeSpecial();
        }
    }

    [[nodiscard]] bool hasCdata() const {
        return syntax_ == HtmlSyntax::Xml || nesting_.isInForeign();
    }

    void writeSpecial() { rest_.remove_prefix(writeCharacter(rest_, References::Yes)); }

    enum class References : bool { No, Yes };

    /// Writes a character that cannot stand for itself; returns how much of the text it was.
    std::size_t writeCharacter(std::string_view text, References references) {
        std::size_t length = 1;
        escaped_.clear();
        if (text.front() == '&' && references == References::Yes) {
            length = appendHtmlReference(text, HtmlReferencePlace::Text, escaped_);
        } else {
            appendEscapedHtml(text.substr(0, 1), escaped_);
        }
        nesting_.expectText(escaped_);
        stream_.expectText(escaped_.size());
        stream_.write(escaped_);
        return length;
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
        const std::string_view written = rest_;
        rest_.remove_prefix(length == 0 ? rest_.size() : length);
        if (length == 0) {
            return;
        }
        if (tag_.isEnd) {
            nesting_.end(tag_);
            return;
        }
        if (tag_.name == "ol") {
            numberBackwards();
        }
        switch (nesting_.start(tag_, written.substr(1, tag_.name.size()))) {
            case HtmlNesting::Contents::Markup:
                break;
            case HtmlNesting::Contents::Nothing:
                rest_.remove_prefix(lengthToHtmlEndTag(rest_, tag_.name));
                break;
            case HtmlNesting::Contents::Text:
                writeRawContents(lengthToHtmlEndTag(rest_, tag_.name));
                break;
            case HtmlNesting::Contents::Rest:
                writeRawContents(rest_.size());
                break;
        }
    }

    /// A list that is numbered backwards begins with the number of its items.
    void numberBackwards() {
        if (tag_.valueOf("reversed") == nullptr || tag_.valueOf("start") != nullptr) {
            return;
        }
        const std::string_view ahead = rest_.substr(0, mostAhead_);
        const HtmlItems items = countHtmlItems(ahead);
        mostAhead_ -= std::min(mostAhead_, items.length);
        number_ = std::to_string(items.count);
        tag_.attributes.push_back({"start", number_});
    }

    void writeRawContents(std::size_t length) {
        const bool hasReferences = tag_.name == "textarea";
        writeRaw(rest_.substr(0, length), hasReferences ? References::Yes : References::No);
        rest_.remove_prefix(length);
    }

    void writeRaw(std::string_view text, References references) {
        while (!text.empty()) {
            const std::size_t length = lengthOfPlainHtml(text);
            writeText(text.substr(0, length));
            text.remove_prefix(length);
            if (!text.empty()) {
                text.remove_prefix(writeCharacter(text, references));
            }
        }
    }

    static constexpr std::string_view kCdata = "<![CDATA[";

    std::string_view rest_;
    HtmlStream& stream_;
    const HtmlSyntax syntax_;
    HtmlNesting nesting_;
    HtmlTag tag_;
    std::string escaped_;
    std::string number_;
    /// How many bytes may still be looked at before their turn, so that lists in lists don't take
    /// the longer the more there are.
    std::size_t mostAhead_;
};

}  // namespace

void writeHtmlSource(std::string_view page, HtmlStream& stream) {
    Writer(page, stream).write();
    stream.finish();
}

}  // namespace platform
