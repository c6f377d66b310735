// pvdoc info: a document's members and header.

#pragma once

#include <string>

#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// Returns a report on the members of the document at `path`, their sizes and methods, and on its
/// header and versions. A Fault when the file cannot be read or is no archive.
platform::Result<std::string> info(const std::string& path);

}  // namespace pvdoc
