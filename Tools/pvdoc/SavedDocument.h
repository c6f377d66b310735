// Saves a document and waits for it.
//
// One thread, the program's main one.

#pragma once

#include <string>

#include "Platform/Foundation/Result.h"
#include "Sources/Document/Document.h"

namespace pvdoc {

/// Saves `document` to the file at `path`; returns when that has ended. A Fault without the file's
/// name when it has failed.
platform::Outcome saveDocument(parlavox::Document& document, const std::string& path,
                               const std::string& type, platform::SaveOperation operation);

}  // namespace pvdoc
