// The checksum that zip archives keep of their contents: CRC-32.
//
// Pure function; any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace platform {

/// Returns the checksum of the bytes that gave `checksum`, 0 for none, and of `bytes` behind them.
[[nodiscard]] std::uint32_t checksumOfBytes(std::uint32_t checksum,
                                            std::span<const std::byte> bytes);

}  // namespace platform
