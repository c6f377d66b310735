// Writes property lists in the binary format.
//
// Equal strings, numbers, dates and data are written once; a container that a value names several
// times is written once, too. Stateless; any thread at once.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// Returns `propertyList` as a binary property list, or a Fault when it holds an object or nests
/// deeper than property lists may.
Result<Data> binaryPropertyListData(const Value& propertyList);

}  // namespace platform
