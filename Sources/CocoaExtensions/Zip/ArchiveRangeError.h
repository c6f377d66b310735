// A place that a zip archive names and does not have.
//
// Immutable; any thread.

#pragma once

#include <string>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace parlavox {

/// Raised when a record, a name, an entry's data or a search block would lie outside of the
/// archive. Nothing in the container catches it: it ends the whole opening.
class ArchiveRangeError : public platform::RangeException {
public:
    explicit ArchiveRangeError(std::string reason) : platform::RangeException(std::move(reason)) {}
};

}  // namespace parlavox
