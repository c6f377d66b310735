#include "Platform/Text/RtfWriter.h"

#include <optional>
#include <string>
#include <utility>

#include "Platform/Foundation/URLReference.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/AttributeNames.h"
#include "Platform/Text/RtfStyleTables.h"
#include "Platform/Text/TextAttachment.h"

namespace platform {
namespace {

constexpr std::size_t kLongestLink = 2'083;

/// Where the text leads; nothing when it is no link that a field can hold.
std::optional<std::u16string> linkIn(const Attributes& attributes) {
    if (attributes == nullptr) {
        return std::nullopt;
    }
    const Value link = (*attributes)[kLinkAttributeName];
    std::u16string target;
    if (const auto* const string = link.string()) {
        target = *string;
    } else if (const auto url = std::dynamic_pointer_cast<const URLReference>(link.object())) {
        target = utf16FromUtf8Lossy(url->relativeString());
    }
    const bool isWritable = !target.empty() && target.size() <= kLongestLink &&
                            target.find_first_of(u"\"\\\n") == std::u16string::npos;
    return isWritable ? std::optional(std::move(target)) : std::nullopt;
}

bool isAttachment(const Attributes& attributes) {
    return attributes != nullptr && !(*attributes)[kAttachmentAttributeName].isNull();
}

/// Puts the body together, run by run.
class Body {
public:
    explicit Body(RtfStyleTables& styles) : styles_(styles) {}

    void append(std::u16string_view text, const Attributes& attributes) {
        const auto link = linkIn(attributes);
        while (!text.empty()) {
            const std::u16string_view line = text.substr(0, text.find(u'\n'));
            beginParagraph(attributes);
            if (!line.empty()) {
                link ? appendLink(*link, line, attributes) : appendLine(line, attributes);
            }
            if (line.size() == text.size()) {
                break;
            }
            rtf_ += "\\par\n";
            isInParagraph_ = false;
            text.remove_prefix(line.size() + 1);
        }
    }

    [[nodiscard]] const std::string& rtf() const { return rtf_; }

private:
    /// Tells of a paragraph at its beginning, if it is another kind than the last. The first
    /// character decides about all of it.
    void beginParagraph(const Attributes& attributes) {
        const std::string& words = styles_.paragraphWordsFor(attributes);
        if (!isInParagraph_ && words != paragraphWords_) {
            // A sign may follow, which must not be taken for a part of the last word.
            rtf_.append(words).append(" ");
            paragraphWords_ = words;
        }
        isInParagraph_ = true;
    }

    void appendLine(std::u16string_view line, const Attributes& attributes) {
        const std::string& words = styles_.wordsFor(attributes);
        if (words != words_) {
            rtf_ += words;
            words_ = words;
        }
        appendRtfText(rtf_, line);
    }

    /// Appends a line whose group keeps its attributes for itself.
    void appendLink(std::u16string_view link, std::u16string_view line,
                    const Attributes& attributes) {
        rtf_ += "{\\field{\\*\\fldinst{HYPERLINK \"";
        appendRtfText(rtf_, link);
        rtf_ += "\"}}{\\fldrslt ";
        rtf_ += styles_.wordsFor(attributes);
        appendRtfText(rtf_, line);
        rtf_ += "}}";
    }

    RtfStyleTables& styles_;
    std::string rtf_;
    /// What holds at the end.
    std::string paragraphWords_;
    std::string words_;
    bool isInParagraph_ = false;
};

}  // namespace

Data rtfFromAttributedString(const AttributedString& text) {
    RtfStyleTables styles;
    Body body(styles);
    std::size_t start = 0;
    for (const auto& [length, attributes] : text.runs()) {
        if (!isAttachment(attributes)) {
            body.append(std::u16string_view(text.string()).substr(start, length), attributes);
        }
        start += length;
    }
    return Data::adopt("{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0\n" + styles.tables() + body.rtf() +
                       "}\n");
}

}  // namespace platform
