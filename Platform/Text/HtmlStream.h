// Hands a page to the parser in pieces.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Platform/Text/Modules/HtmlModule.h"

namespace platform {

/// Collects what is written until it is worth a call.
class HtmlStream {
public:
    /// Raises std::bad_alloc when there is no memory. Requires: the handler lives longer.
    explicit HtmlStream(const HtmlHandler& handler);

    HtmlStream(const HtmlStream&) = delete;
    HtmlStream& operator=(const HtmlStream&) = delete;
    ~HtmlStream();

    /// Writes UTF-8. Requires: it is sound and has no NULs.
    void write(std::string_view utf8) {
        if (piece_.size() + utf8.size() > kPiece) {
            flush(utf8);
        }
        piece_ += utf8;
    }

    /// Writes a tag.
    void writeTag(std::string_view tag) {
        write(tag);
        textSinceTag_ = 0;
    }

    /// Has to be told before text of a length is written.
    ///
    /// The parser waits with text for the markup behind it, and keeps all of it until then.
    void expectText(std::size_t length) {
        if (textSinceTag_ + length > kLongestText) {
            settle();
        }
        textSinceTag_ += length;
    }
    static constexpr std::size_t kLongestText = 65536;

    /// Ends the page; nothing can be written then. Like all that writes, it raises std::bad_alloc
    /// when the parser has no memory, and what the handler raises.
    void finish();

private:
    /// Parses pieces until what is left of the text fits into one.
    void flush(std::string_view& utf8);
    /// Has all text parsed that was written, and forgotten.
    void settle();
    void parse(bool isLast);

    /// How much is handed over at once.
    static constexpr std::size_t kPiece = 65536;

    const HtmlFunctions& functions_;
    HtmlParsing* const parsing_;
    std::string piece_;
    std::size_t textSinceTag_ = 0;
};

}  // namespace platform
