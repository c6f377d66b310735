// The text of a file as the importer reads it.

#pragma once

#include <string>

#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"

namespace pvdoc {

/// Returns the text of the file at `path`, which may be of any type that the importer takes, or of
/// the standard input when the path is "-". A Fault when it has none.
platform::Result<platform::AttributedString> textOfFile(const std::string& path);

}  // namespace pvdoc
