// Error objects for what the operating system refused.
//
// Any thread at once.

#pragma once

#include <cstdint>
#include <string_view>

#include "Platform/Foundation/Error.h"

namespace platform {

/// What was being done to a file when the system refused; the platform's codes differ by it.
enum class FileAccess : std::uint8_t { Reading, Writing };

/// Returns the error of the domain of errno values, with the system's words for it.
[[nodiscard]] Error posixErrorForErrno(int errnoValue);

/// Returns the error of the platform's own domain that stands for an errno value; the description
/// is `path`, a colon and the system's words.
[[nodiscard]] Error cocoaErrorForErrno(int errnoValue, FileAccess access, std::string_view path);

}  // namespace platform
