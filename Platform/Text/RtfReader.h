// Reads RTF: the documents of word processors, mail programs and the platform's own editors.
//
// Stateless; any thread at once.

#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/TextAttachment.h"

namespace platform {

/// Returns the attachment for the file `name` (UTF-8) of a document that keeps its pictures beside
/// itself; null when it has none.
using AttachmentFinder =
    std::function<std::shared_ptr<const TextAttachment>(std::string_view name)>;

/// Whether bytes begin as RTF does, behind a byte-order mark and white space or without.
[[nodiscard]] bool isRtf(std::string_view bytes);

/// Returns the text of an RTF document; a Fault when the bytes are none.
///
/// Whatever else is wrong with the document, its text up to there is returned. Left out are
/// headers, footers, comments, hidden and deleted text, and all that only describes the document.
/// Footnotes and endnotes follow the paragraph that they belong to. Of fields the result is taken,
/// with its link; of tables the cells, with a tab between two and a line end behind a row.
/// Paragraphs end with U+000A, lines in them with U+2028, pages with U+000C. Pictures and embedded
/// files become U+FFFC, with an attachment that `findAttachment` gives, else one without a file.
///
/// Costs time in proportion to the document's size, and memory up to about six times it. To that
/// end text has no attributes behind so many runs, or in so many looks, as no program writes.
///
/// It is what the platform's initWithRTF:documentAttributes: does.
Result<AttributedString> attributedStringFromRtf(const Data& data,
                                                 const AttachmentFinder& findAttachment = {});

}  // namespace platform
