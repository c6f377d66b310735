// Random identifiers.
//
// Any thread at once.

#pragma once

#include <string>

namespace platform {

/// Returns a new random identifier (version 4) as text: 36 characters, upper-case hexadecimal
/// digits in groups of 8, 4, 4, 4 and 12 joined by "-".
///
/// Throws std::system_error when the system gives no random bytes.
[[nodiscard]] std::string uniqueIdentifier();

}  // namespace platform
