// Tells from a file's bytes what they hold: a format of text, or one that has none.
//
// Pure functions; any thread at once. Time is linear in what stands before the first tag of a page;
// of other files only the first bytes are looked at.

#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

enum class TextFormat : std::uint8_t {
    Plain,  ///< what nothing else claims, XML and other markup among it
    Rtf,
    FlatRtfd,  ///< a serialised file wrapper
    Html,
    Pdf,
    Binary,  ///< known to hold no plain text: pictures, archives, programs
};

/// A format and what people call it.
struct DetectedFormat {
    TextFormat format;
    std::string_view name;
};

/// Returns the format that `bytes` begin as.
///
/// RTF may stand behind a mark of UTF-8 and white space. A page of HTML begins, behind a byte-order
/// mark, white space, comments and processing instructions, with the document type html or with
/// one of the tags html, head, body, title, meta, link, base, script and style, in any case of
/// letters and in UTF-16 and UTF-32, too. So does XHTML.
///
/// A picture and the like is known by the bytes that its format demands. Where those are letters,
/// they are only believed when bytes that no text has follow soon.
[[nodiscard]] DetectedFormat textFormatOfBytes(std::string_view bytes);

}  // namespace platform
