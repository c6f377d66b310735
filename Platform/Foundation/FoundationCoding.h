// How the foundation's own classes are kept in keyed archives.
//
// Constant; any thread at once.

#pragma once

#include <span>

#include "Platform/Foundation/KeyedUnarchiver.h"

namespace platform {

/// The classes that every unarchiver knows: strings, numbers, data, dates, arrays, dictionaries and
/// URLs.
[[nodiscard]] std::span<const CodableClass> foundationClasses();

}  // namespace platform
