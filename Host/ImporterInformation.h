// Reads what an importer takes out of its bundle's information.
//
// Pure function; any thread.

#pragma once

#include "Host/ImporterTypes.h"
#include "Platform/CoreFoundation/CoreFoundation.h"

namespace host {

/// Returns what `information`, the contents of an Info.plist, says about types: the types of the
/// document entries with the role MDImporter, and the exported and imported declarations.
///
/// Entries of a wrong kind count as missing; where names are listed, one name may stand alone.
[[nodiscard]] ImporterTypes importerTypesOf(CFDictionaryRef information);

}  // namespace host
