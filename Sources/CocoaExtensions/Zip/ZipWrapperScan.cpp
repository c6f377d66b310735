// Finding the entries of an archive: the central directory, and the scan that stands in for it.

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <string>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/Unicode.h"
#include "Sources/CocoaExtensions/Zip/ArchiveRangeError.h"
#include "Sources/CocoaExtensions/Zip/StreamConvert.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {

using platform::Data;
using platform::Range;

namespace {

constexpr std::int64_t kNameBufferSize = 4096;

// What this container's own writer puts into every local header; the scan takes no other.
constexpr std::uint16_t kOwnVersionToExtract = 10;

}  // namespace

Data ZipWrapper::archiveBytes(Range range) const {
    const std::uint64_t size = inputData_ ? inputData_->size() : 0;
    if (!range.liesWithin(size)) {
        platform::raise(ArchiveRangeError("bytes " + std::to_string(range.location) + " to " +
                                          std::to_string(range.end()) + " of an archive of " +
                                          std::to_string(size) + " bytes"));
    }
    return inputData_ ? inputData_->subdataWithRange(range) : Data();
}

bool ZipWrapper::scanLocalHeader() {
    if (stackSize_ < kDirectorySize) {
        platform::noteFailure("no zip archive: only " + std::to_string(stackSize_) + " bytes");
        return false;
    }
    SDirectory end{};
    if (inputData_) {
        end =
            directoryFromBytes(archiveBytes({stackSize_ - kDirectorySize, kDirectorySize}).bytes());
    }
    if (end.Signature != kDirectorySignature || end.EntriesOnDisk != end.TotalEntries) {
        platform::noteFailure("no zip archive: no end record in its last 22 bytes");
        return false;
    }
    if (end.DirectoryOffset > stackSize_) {
        platform::raise(
            ArchiveRangeError("central directory at offset " + std::to_string(end.DirectoryOffset) +
                              " of an archive of " + std::to_string(stackSize_) + " bytes"));
    }
    const Data directory = archiveBytes({end.DirectoryOffset, stackSize_ - end.DirectoryOffset});
    if (directory.empty()) {
        platform::noteFailure("no central directory");
        return false;
    }
    if (!readCentralRecords(directory, end.EntriesOnDisk)) {
        scanZipFileInConsecutiveOrder(end.TotalEntries, end.DirectoryOffset);
    }
    return true;
}

bool ZipWrapper::readCentralRecords(const Data& directory, std::uint16_t count) {
    std::uint64_t position = 0;
    for (std::uint16_t remaining = count; remaining > 0; --remaining) {
        if (position + kFileHeaderSize > directory.size()) {
            return false;
        }
        SFileHeader header;
        FLReadSFileHeader(&header, directory.bytes() + position);
        if (header.Signature != kFileHeaderSignature) {
            return false;
        }
        position += kFileHeaderSize;
        if (position + header.FilenameLength > directory.size()) {
            return false;
        }
        const auto name =
            createStringFromFilenameRecord(directory.bytes() + position, header.FilenameLength);
        position +=
            std::uint64_t{header.FilenameLength} + header.CommentLength + header.ExtraFieldLength;
        const SZipFileInfo entry{header.LocalHeaderOffset, 0, header.CompressionMethod,
                                 header.DataDescriptor.CompressedSize,
                                 header.DataDescriptor.UncompressedSize};
        if (!addFileWrapper(name, entry)) {
            return false;
        }
    }
    return true;
}

void ZipWrapper::scanZipFileInConsecutiveOrder(std::uint32_t, std::uint32_t searchEndPosition) {
    std::uint64_t position = 0;
    while (position != platform::kNotFound && position <= searchEndPosition) {
        position = scanEntryAt(position);
    }
}

std::uint64_t ZipWrapper::scanEntryAt(std::uint64_t position) {
    SLocalFileHeader header;
    FLReadSLocalFileHeader(&header, archiveBytes({position, kLocalFileHeaderSize}).bytes());
    if (header.Signature != kLocalFileHeaderSignature) {
        static constexpr std::string_view kSignatureBytes = "PK\3\4";
        position = rangeOfData(Data::copyOf(kSignatureBytes), {position, 0}).location;
        if (position == platform::kNotFound) {
            return position;
        }
        FLReadSLocalFileHeader(&header, archiveBytes({position, kLocalFileHeaderSize}).bytes());
    }
    if (header.VersionToExtract != kOwnVersionToExtract) {
        return position + 1;
    }
    const std::uint64_t namePosition = position + kLocalFileHeaderSize;
    const Data nameBytes = archiveBytes({namePosition, header.FilenameLength});
    const auto name = createStringFromFilenameRecord(nameBytes.bytes(), header.FilenameLength);
    // A name that is not plain ASCII has fewer characters than bytes; it is not taken here.
    if (platform::utf16FromUtf8(name.value_or("")).value().size() != header.FilenameLength) {
        return position + 1;
    }
    const std::uint64_t dataPosition =
        namePosition + header.FilenameLength + header.ExtraFieldLength;
    // Beyond the archive is also where 32 bits would no longer do.
    (void)archiveBytes({dataPosition, 0});
    const SZipFileInfo entry{0, static_cast<std::uint32_t>(dataPosition), header.CompressionMethod,
                             header.DataDescriptor.CompressedSize,
                             header.DataDescriptor.UncompressedSize};
    if (!addFileWrapper(name, entry)) {
        return position + 1;
    }
    return dataPosition + header.DataDescriptor.CompressedSize;
}

Range ZipWrapper::rangeOfData(const std::optional<Data>& data, Range range) const {
    constexpr std::uint64_t kBlockFactor = 100;
    if (!zipRequire(data.has_value(), "stringToFind", 639)) {
        return {platform::kNotFound, 0};
    }
    if (!inputData_) {
        // Without archive bytes there is no block to search, and the answer is the range's own
        // start, as intended.
        return {range.location, 0};
    }
    const std::string_view needle = data->view();
    const std::uint64_t length = range.length != 0 ? range.length : kBlockFactor * needle.size();
    for (std::uint64_t start = range.location;; start += length - needle.size()) {
        const Data block = archiveBytes({start, length});
        if (const auto at = block.view().find(needle); at != std::string_view::npos) {
            return {start + at, needle.size()};
        }
        if (length <= needle.size()) {
            // The next block would begin no further on.
            return {platform::kNotFound, 0};
        }
    }
}

std::optional<std::string> ZipWrapper::createStringFromFilenameRecord(const std::byte* bytes,
                                                                      std::int64_t count) {
    if (!zipRequire(bytes != nullptr, "bytes", 676) || !zipRequire(count > 0, "count > 0", 677) ||
        !zipRequire(count < kNameBufferSize, "count < 4096", 678)) {
        return std::nullopt;
    }
    std::array<char, kNameBufferSize> name;
    for (std::int64_t i = 0; i < count; ++i) {
        const auto byte = static_cast<std::uint8_t>(bytes[i]);
        name[static_cast<std::size_t>(i)] = static_cast<char>(
            SHIFER_streamConvert(byte, static_cast<std::uint64_t>(i), nullptr, nullptr));
    }
    name[static_cast<std::size_t>(count)] = '\0';
    std::string text(name.data());
    if (!platform::utf16FromUtf8(text)) {
        platform::noteFailure("entry name that is not UTF-8");
        return std::nullopt;
    }
    return text;
}

}  // namespace parlavox
