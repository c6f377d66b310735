// The types of documents that the running program declares in its bundle.
//
// Any thread at once.

#pragma once

#include <string>
#include <vector>

namespace platform {

/// A type of documents, and what the program does with it.
struct DeclaredType {
    std::string type;
    bool isReadable = false;
    bool isWritable = false;
};

/// The types under CFBundleDocumentTypes of the main bundle, in that order: an editor reads and
/// writes, a viewer reads, others do neither.
[[nodiscard]] std::vector<DeclaredType> declaredTypes();

}  // namespace platform
