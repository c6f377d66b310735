// pvdoc export: the text of a document without its tags, as RTF or plain text.

#pragma once

#include "Platform/Foundation/Result.h"
#include "Tools/pvdoc/Save.h"

namespace pvdoc {

enum class ExportFormat : bool { Rtf, Text };

/// Writes the text of any file that is imported to `target`, without its tags; plain text is UTF-8.
/// A Fault names the file, and what was there is as it was.
platform::Outcome exportText(const Conversion& conversion, ExportFormat format);

}  // namespace pvdoc
