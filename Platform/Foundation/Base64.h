// Base64, as property lists use it.
//
// Pure functions; any thread at once.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// Returns the bytes that `text` stands for, or nothing when it holds anything but base64 digits,
/// padding at its end, and white space.
[[nodiscard]] std::optional<std::string> bytesFromBase64(std::string_view text);

/// Returns `bytes` as base64 digits with padding, without line breaks.
[[nodiscard]] std::string base64FromBytes(std::string_view bytes);

}  // namespace platform
