// Finds the type of a file, from its name or else from its first bytes.
//
// Any thread.

#pragma once

#include <string>
#include <string_view>

#include "Host/ImporterTypes.h"
#include "Host/InputFile.h"

namespace host {

/// Returns the extension of the path's last component, without the dot; empty when it has none. A
/// dot at a name's beginning starts no extension, slashes at the path's end do not count.
[[nodiscard]] std::string_view extensionOf(std::string_view path);

/// Returns the identifier of the file's type, never an empty one.
///
/// The extension decides if a type has it; of several types, one that the importer takes goes
/// first. Otherwise a folder is public.folder, and a file what its bytes look like.
[[nodiscard]] std::string contentTypeOf(const InputFile& file, const ImporterTypes& types);

}  // namespace host
