// The information of the importer's bundle, made from the type table.
//
// Pure functions; any thread.

#pragma once

#include <string_view>

#include "Platform/Foundation/Value.h"

namespace packaging {

/// Returns the content of the bundle's Info.plist: what it is called, how its plug-in is found, the
/// types that the importer takes and the types that the bundle declares.
///
/// `version` is the project's, such as "1.2.0".
[[nodiscard]] platform::Dictionary infoPlist(std::string_view version);

}  // namespace packaging
