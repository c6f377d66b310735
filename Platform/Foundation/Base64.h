// Base64, as property lists use it.
//
// Pure functions; any thread at once.

#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Returns the bytes that `text` stands for, as the platform reads them: what is neither a digit
/// nor padding is passed over, a last group of fewer than four is left out, and padding inside
/// counts as zero bits, with bytes left out where a group ends in it.
[[nodiscard]] std::string bytesFromBase64(std::string_view text);

/// Returns `bytes` as base64 digits with padding, without line breaks.
[[nodiscard]] std::string base64FromBytes(std::string_view bytes);

}  // namespace platform
