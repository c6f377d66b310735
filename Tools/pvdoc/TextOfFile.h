// The document of a file, and its text, as the importer reads it.

#pragma once

#include <memory>
#include <string>

#include "Platform/Foundation/Result.h"
#include "Platform/Text/AttributedString.h"
#include "Sources/Document/Document.h"

namespace pvdoc {

/// Returns the document of the file at `path`, which may be of any type that the importer takes. A
/// Fault when it can't be read.
platform::Result<std::shared_ptr<parlavox::Document>> documentOfFile(const std::string& path);

/// Returns the text of the file at `path`, which may be of any type that the importer takes, or of
/// the standard input when the path is "-". A Fault when it has none.
platform::Result<platform::AttributedString> textOfFile(const std::string& path);

}  // namespace pvdoc
