// Property lists as objects, and Info.plist as a dictionary of them.
//
// Keeps nothing. Any thread.

#pragma once

#include <string>

#include "Platform/CoreFoundation/CFDictionary.h"
#include "Platform/CoreFoundation/Object.h"

namespace platform {
class Value;
}

namespace platform::cf {

/// Returns `value` as an object, one for each that the value shares, so that memory stays within
/// the value's own; null for what has no object. May throw std::bad_alloc.
///
/// Requires: the value is a property list.
[[nodiscard]] Owned<CFTypeRef> objectFromValue(const Value& value);

/// Returns the contents of the Info.plist at `path`. An empty dictionary, with a line in the log,
/// when it cannot be read or holds something else. May throw std::bad_alloc.
[[nodiscard]] Owned<CFDictionaryRef> readInfoDictionary(const std::string& path);

/// Returns a dictionary without entries. May throw std::bad_alloc.
[[nodiscard]] Owned<CFDictionaryRef> emptyDictionary();

}  // namespace platform::cf
