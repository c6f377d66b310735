// The transformation that entry names go through when they are read.
//
// Pure function; any thread at once.

#pragma once

#include <cstdint>

namespace parlavox {

extern "C" {

/// Returns `byte`, the one at `index` of a stream, combined with two texts of keys; doing it twice
/// gives the byte back. Without a key (null), or with a first key of fewer than two characters, it
/// returns the byte unchanged. No keys exist today: the container's names are read without any.
///
/// Keys end in a NUL. An empty second key beside a usable first one is an assertion failure; the
/// byte is unchanged when its handler returns.
std::uint8_t SHIFER_streamConvert(std::uint8_t byte, std::uint64_t index, const char* firstKey,
                                  const char* secondKey);

}  // extern "C"

}  // namespace parlavox
