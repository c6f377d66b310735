// Where one entry of an archive lies.

#pragma once

#include <cstdint>

namespace parlavox {

/// Passed by value to the operations that read an entry; offsets count bytes from the archive's
/// start, sizes are bytes.
struct SZipFileInfo {
    std::uint32_t LocalHeaderOffset;
    std::uint32_t DataOffset;  ///< 0: not known yet, to be computed from the local header
    std::uint16_t CompressionMethod;
    std::uint32_t CompressedSize;
    std::uint32_t UncompressedSize;
};

}  // namespace parlavox
