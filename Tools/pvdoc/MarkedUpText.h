// Text whose attributes are given by marks, so that documents of any kind can be written by hand.
//
//     {{font Helvetica-Bold 18}}Heading{{/font}}
//     {{color 0.8 0 0}}red{{/color}}, with a fourth number for alpha
//     {{link https://example.org/}}a link{{/link}}
//     {{underline}}underlined{{/underline}}
//     {{align center}}a paragraph{{/align}}, or left, right, justified
//     {{tag AcmePause AcmePauseTag seconds=2 label="short pause"}}words{{/tag}}
//     {{attach picture.png}}
//
// A tag gives its text the attribute that is named first; its value is an object of the class named
// second, which no reader knows, with fields that are integers, numbers, true, false or text. An
// attachment is a file beside the text. Marks nest and end in reverse order; words with blanks
// stand in quotation marks; a backslash before {{ makes it plain text.

#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"

namespace pvdoc {

/// Returns the bytes of the file that a mark names.
using AttachmentReader = std::function<platform::Result<platform::Data>(const std::string& name)>;

/// Returns the text that `source` describes. Runs with the same marks share their attributes.
///
/// A mark that is wrong is a Fault with its line. Files are asked of `attachments`.
platform::Result<platform::AttributedString> attributedTextFromMarks(
    std::u16string_view source, const AttachmentReader& attachments);

}  // namespace pvdoc
