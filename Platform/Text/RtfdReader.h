// Reads RTFD: a folder with a text, TXT.rtf, and the files that it shows.
//
// Stateless; any thread at once, each tree of wrappers on one.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// Returns the text of the document in the folder `wrapper`, or in a file that holds such a folder
/// in one run of bytes; a Fault when it is neither or has no text. Names differ in upper and lower
/// case on some disks, so the text may be called in any.
///
/// Attachments have the folder's files, which are not read before they are asked for; a file that
/// is missing gives an attachment without one. A text that is no RTF is taken as plain text.
///
/// It is what the platform's initWithRTFDFileWrapper:documentAttributes: does.
Result<AttributedString> attributedStringFromRtfd(const FileWrapper& wrapper);

/// The same for a folder in one run of bytes (FileWrapperSerialization.h), as programs pass RTFD
/// on.
///
/// It is what the platform's initWithRTFD:documentAttributes: does.
Result<AttributedString> attributedStringFromFlatRtfd(const Data& data);

}  // namespace platform
