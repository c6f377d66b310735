// Guesses the type of a file from its bytes, for files whose names say nothing.
//
// Pure functions; any thread. Time is linear in the bytes given.

#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// How many bytes of a file's beginning and end a guess looks at.
inline constexpr std::size_t kMagicBytes = std::size_t{64} * 1024;

/// Returns the identifier of the type that a file with these bytes seems to have, public.data when
/// they tell nothing.
///
/// `beginning` and `end` are the file's first and last bytes, kMagicBytes of each or as many as
/// there are; the same bytes may be in both.
[[nodiscard]] std::string_view typeOfBytes(std::string_view beginning, std::string_view end);

}  // namespace platform
