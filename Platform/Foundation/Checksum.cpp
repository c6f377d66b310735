#include "Platform/Foundation/Checksum.h"

#include <libdeflate.h>

namespace platform {

std::uint32_t checksumOfBytes(std::uint32_t checksum, std::span<const std::byte> bytes) {
    // A pointer of null asks the library for its first value, which is that of no bytes.
    return bytes.empty() ? checksum : libdeflate_crc32(checksum, bytes.data(), bytes.size());
}

}  // namespace platform
