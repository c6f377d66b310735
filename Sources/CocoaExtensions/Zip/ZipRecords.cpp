#include "Sources/CocoaExtensions/Zip/ZipRecords.h"

#include <array>
#include <cstddef>
#include <span>

#include "Platform/Foundation/OutputStream.h"

namespace parlavox {

// The end record lies in memory as it does on disk.
static_assert(offsetof(SDirectory, Signature) == 0);
static_assert(offsetof(SDirectory, DiskNumbers) == 4);
static_assert(offsetof(SDirectory, EntriesOnDisk) == 8);
static_assert(offsetof(SDirectory, TotalEntries) == 10);
static_assert(offsetof(SDirectory, DirectorySize) == 12);
static_assert(offsetof(SDirectory, DirectoryOffset) == 16);
static_assert(offsetof(SDirectory, CommentLength) == 20);
static_assert(kDirectorySize == offsetof(SDirectory, CommentLength) + sizeof(std::uint16_t));

namespace {

/// Takes little-endian fields from a record, one after the other.
class FieldReader {
public:
    explicit FieldReader(const void* source) : next_(static_cast<const unsigned char*>(source)) {}

    FieldReader& operator>>(std::uint16_t& field) {
        field = static_cast<std::uint16_t>(next_[0] | next_[1] << 8);
        next_ += 2;
        return *this;
    }

    FieldReader& operator>>(std::uint32_t& field) {
        field = next_[0] | std::uint32_t{next_[1]} << 8 | std::uint32_t{next_[2]} << 16 |
                std::uint32_t{next_[3]} << 24;
        next_ += 4;
        return *this;
    }

    FieldReader& operator>>(SZIPFileDataDescriptor& descriptor) {
        return *this >> descriptor.CRC32 >> descriptor.CompressedSize >>
               descriptor.UncompressedSize;
    }

private:
    const unsigned char* next_;
};

/// Writes little-endian fields, each with a call of its own, and adds up what the stream reports.
class FieldWriter {
public:
    explicit FieldWriter(platform::OutputStream& stream) : stream_(stream) {}

    template <class Integer>
    FieldWriter& operator<<(Integer field) {
        std::array<std::byte, sizeof(Integer)> bytes;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<std::byte>(field >> (8 * i));
        }
        sum_ += stream_.write(bytes);
        return *this;
    }

    FieldWriter& operator<<(const SZIPFileDataDescriptor& descriptor) {
        return *this << descriptor.CRC32 << descriptor.CompressedSize
                     << descriptor.UncompressedSize;
    }

    std::int64_t sum() const { return sum_; }

private:
    platform::OutputStream& stream_;
    std::int64_t sum_ = 0;
};

}  // namespace

void FLReadSFileHeader(SFileHeader* header, const void* source) {
    FieldReader(source) >> header->Signature >> header->VersionPacked >> header->VersionToExtract >>
        header->GeneralBitFlag >> header->CompressionMethod >> header->LastModFileTime >>
        header->LastModFileDate >> header->DataDescriptor >> header->FilenameLength >>
        header->ExtraFieldLength >> header->CommentLength >> header->DiskNumberStart >>
        header->InternalFileAttr >> header->ExternalFileAttr >> header->LocalHeaderOffset;
}

void FLReadSLocalFileHeader(SLocalFileHeader* header, const void* source) {
    FieldReader(source) >> header->Signature >> header->VersionToExtract >>
        header->GeneralBitFlag >> header->CompressionMethod >> header->LastModFileTime >>
        header->LastModFileDate >> header->DataDescriptor >> header->FilenameLength >>
        header->ExtraFieldLength;
}

SDirectory directoryFromBytes(const void* source) {
    SDirectory directory;
    FieldReader(source) >> directory.Signature >> directory.DiskNumbers >>
        directory.EntriesOnDisk >> directory.TotalEntries >> directory.DirectorySize >>
        directory.DirectoryOffset >> directory.CommentLength;
    return directory;
}

std::int64_t FLWriteSLocalFileHeader(platform::OutputStream* stream, SLocalFileHeader header) {
    if (stream == nullptr) {
        return 0;
    }
    FieldWriter writer(*stream);
    writer << header.Signature << header.VersionToExtract << header.GeneralBitFlag
           << header.CompressionMethod << header.LastModFileTime << header.LastModFileDate
           << header.DataDescriptor << header.FilenameLength << header.ExtraFieldLength;
    return writer.sum();
}

std::int64_t FLWriteSFileHeader(platform::OutputStream* stream, SFileHeader header) {
    if (stream == nullptr) {
        return 0;
    }
    FieldWriter writer(*stream);
    writer << header.Signature << header.VersionPacked << header.VersionToExtract
           << header.GeneralBitFlag << header.CompressionMethod << header.LastModFileTime
           << header.LastModFileDate << header.DataDescriptor << header.FilenameLength
           << header.ExtraFieldLength << header.CommentLength << header.DiskNumberStart
           << header.InternalFileAttr << header.ExternalFileAttr << header.LocalHeaderOffset;
    return writer.sum();
}

std::int64_t FLWriteSDirectory(platform::OutputStream* stream, SDirectory directory) {
    if (stream == nullptr) {
        return 0;
    }
    FieldWriter writer(*stream);
    writer << directory.Signature << directory.DiskNumbers << directory.EntriesOnDisk
           << directory.TotalEntries << directory.DirectorySize << directory.DirectoryOffset
           << directory.CommentLength;
    return writer.sum();
}

}  // namespace parlavox
