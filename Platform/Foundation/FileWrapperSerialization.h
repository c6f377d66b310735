// File wrappers as one run of bytes, the form that they have inside archives.
//
// The bytes begin with "rtfd" and a version. A record follows: a folder's names, the sizes of their
// records and the records; or a file's bytes. Numbers are little-endian and have 32 bits. Reserved
// names hold what a record says of itself. Stateless; any thread at once.

#pragma once

#include <memory>
#include <optional>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/Result.h"

namespace platform {

/// Returns the tree of wrappers that `data` holds; files share its bytes. Records of kinds that are
/// not known here (links, attributes) are left out.
///
/// A Fault when the bytes are no such form, end early, or nest deeper than 128 folders.
Result<std::shared_ptr<FileWrapper>> fileWrapperFromSerializedRepresentation(const Data& data);

/// Returns `wrapper` as bytes. Links, and files whose contents cannot be had, are left out.
///
/// Nothing when the wrapper itself is a link or a file without contents, when a file or the whole
/// is larger than the form can say (2 GiB), when folders nest deeper than 128, or when a
/// child has one of the reserved names.
std::optional<Data> serializedRepresentationOf(const FileWrapper& wrapper);

}  // namespace platform
