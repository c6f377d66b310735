// The three records of a zip archive: local header, central header, end record.
//
// The structures hold the fields in host byte order; on disk they are little-endian and packed.
// The functions convert between the two and check nothing: not a signature, not a length.
// Plain values and pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>

namespace platform {
class OutputStream;
}

namespace parlavox {

inline constexpr std::uint32_t kLocalFileHeaderSignature = 0x04034B50;
inline constexpr std::uint32_t kFileHeaderSignature = 0x02014B50;
inline constexpr std::uint32_t kDirectorySignature = 0x06054B50;

// Bytes on disk, without the names and other fields of variable size.
inline constexpr std::uint32_t kLocalFileHeaderSize = 30;
inline constexpr std::uint32_t kFileHeaderSize = 46;
inline constexpr std::uint32_t kDirectorySize = 22;

/// The checksum of an entry's contents and its sizes before and after inflating, in bytes.
struct SZIPFileDataDescriptor {
    std::uint32_t CRC32;
    std::uint32_t CompressedSize;
    std::uint32_t UncompressedSize;
};

/// What stands before each entry's data.
struct SLocalFileHeader {
    std::uint32_t Signature;
    std::uint16_t VersionToExtract;
    std::uint16_t GeneralBitFlag;
    std::uint16_t CompressionMethod;
    std::uint16_t LastModFileTime;
    std::uint16_t LastModFileDate;
    SZIPFileDataDescriptor DataDescriptor;
    std::uint16_t FilenameLength;
    std::uint16_t ExtraFieldLength;
};

/// An entry of the central directory.
struct SFileHeader {
    std::uint32_t Signature;
    std::uint16_t VersionPacked;
    std::uint16_t VersionToExtract;
    std::uint16_t GeneralBitFlag;
    std::uint16_t CompressionMethod;
    std::uint16_t LastModFileTime;
    std::uint16_t LastModFileDate;
    SZIPFileDataDescriptor DataDescriptor;
    std::uint16_t FilenameLength;
    std::uint16_t ExtraFieldLength;
    std::uint16_t CommentLength;
    std::uint16_t DiskNumberStart;
    std::uint16_t InternalFileAttr;
    std::uint32_t ExternalFileAttr;
    std::uint32_t LocalHeaderOffset;
};

/// The end of the central directory, and of the archive.
struct SDirectory {
    std::uint32_t Signature;
    std::uint32_t DiskNumbers;  ///< both 16-bit disk numbers; always 0 when written
    std::uint16_t EntriesOnDisk;
    std::uint16_t TotalEntries;
    std::uint32_t DirectorySize;
    std::uint32_t DirectoryOffset;
    std::uint16_t CommentLength;
};

extern "C" {

/// Fills `header` from the 46 bytes at `source`.
void FLReadSFileHeader(SFileHeader* header, const void* source);

/// Fills `header` from the 30 bytes at `source`.
void FLReadSLocalFileHeader(SLocalFileHeader* header, const void* source);

/// Each writes a record to `stream` with one call a field (11, 17 and 7 calls) and returns the sum
/// of the counts that the stream reported, negative ones included: 30, 46 or 22 when all went well.
/// A failed call does not stop the later ones. Without a stream they return 0.
std::int64_t FLWriteSLocalFileHeader(platform::OutputStream* stream, SLocalFileHeader header);
std::int64_t FLWriteSFileHeader(platform::OutputStream* stream, SFileHeader header);
std::int64_t FLWriteSDirectory(platform::OutputStream* stream, SDirectory directory);

}  // extern "C"

/// Returns the end record in the 22 bytes at `source`.
[[nodiscard]] SDirectory directoryFromBytes(const void* source);

}  // namespace parlavox
