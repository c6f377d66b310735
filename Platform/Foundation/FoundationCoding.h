// How the foundation's own classes are kept in keyed archives.
//
// Constant; any thread at once.

#pragma once

#include <span>

#include "Platform/Foundation/KeyedUnarchiver.h"

namespace platform {

/// The classes that every unarchiver knows: strings, data, dates, arrays and dictionaries.
[[nodiscard]] std::span<const CodableClass> foundationClasses();

}  // namespace platform
