// Reads all of an open file.
//
// Any thread, as long as the file is used by one at a time.

#pragma once

#include <optional>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/FileDescriptor.h"

namespace platform {

/// Returns the bytes from the current place in `file` to its end. `expectedSize` only sizes the
/// first allocation. Nothing, with errno, when reading fails.
[[nodiscard]] std::optional<Data> contentsOfFile(const FileDescriptor& file,
                                                 std::size_t expectedSize);

}  // namespace platform
