// What an Info.plist declares of a plug-in: its factories and the types they make.
//
// Values without references to objects. Any thread.

#pragma once

#include <map>
#include <set>
#include <string>

#include "Platform/CoreFoundation/CFDictionary.h"
#include "Platform/CoreFoundation/UUID.h"

namespace platform::cf {

/// One factory: the name of its function and the types of what it makes.
struct FactoryDescription {
    std::string functionName;
    std::set<UUIDBytes> types;
};

/// Factories by their identifiers.
using FactoryDescriptions = std::map<UUIDBytes, FactoryDescription>;

/// Returns the factories that `info` declares, none when it describes no plug-in. A type that names
/// an unknown factory is passed over with a line in the log. May throw std::bad_alloc.
[[nodiscard]] FactoryDescriptions factoriesIn(CFDictionaryRef info);

/// Tells whether the code of the plug-in is to register more factories itself: the string YES, in
/// any case, under CFPlugInDynamicRegistration.
[[nodiscard]] bool registersDynamically(CFDictionaryRef info);

}  // namespace platform::cf
