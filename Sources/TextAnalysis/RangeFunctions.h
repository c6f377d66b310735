// Ranges of text: the one that means "not found", and what two ranges share.
//
// Pure functions; any thread.

#pragma once

#include "Platform/Foundation/Range.h"

namespace parlavox {

using platform::Range;

/// What a search answers when it finds nothing; only a range that is equal in both fields is it.
// NOLINTNEXTLINE(readability-identifier-naming): the name is part of the interface.
inline constexpr Range NotFoundRange{platform::kNotFound, 0};

#ifdef __clang__
#pragma clang diagnostic push
// A range is two numbers wherever it is passed; only its default values are not C.
#pragma clang diagnostic ignored "-Wreturn-type-c-linkage"
#endif
/// Returns what two ranges share, NotFoundRange when they do not meet.
///
/// An empty range meets one that contains its position or begins there, and is what they share;
/// ranges that only touch do not meet. Ends are location + length in 64 bits, also beyond them.
extern "C" Range PVIntersectionRange(Range first, Range second);
#ifdef __clang__
#pragma clang diagnostic pop
#endif

}  // namespace parlavox
