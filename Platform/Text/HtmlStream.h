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

    /// Has all text parsed that was written, and forgotten. Requires: no tag has begun.
    ///
    /// The parser waits with text for the markup behind it. A comment is markup, and with one at
    /// the end of its input it gives back what it has kept, too.
    void settle();

    /// Ends the page; nothing can be written then.
    void finish();

private:
    /// Parses pieces until what is left of the text fits into one.
    void flush(std::string_view& utf8);

    /// Text without markup waits inside the parser, and what a stopped parser leaves is copied.
    static constexpr std::size_t kPiece = 65536;

    const HtmlFunctions& functions_;
    HtmlParsing* const parsing_;
    std::string piece_;
};

}  // namespace platform
