// The list of the types that an importer takes.
//
// Pure functions; any thread.

#pragma once

#include <string>

#include "Host/ImporterTypes.h"

namespace host {

/// Returns a line for each type, in columns: identifier, extensions, MIME types, description.
[[nodiscard]] std::string typeTable(const ImporterTypes& types);

/// Returns a line for each type, a JSON object.
[[nodiscard]] std::string typeLinesAsJson(const ImporterTypes& types);

}  // namespace host
