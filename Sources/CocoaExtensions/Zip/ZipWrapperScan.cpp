// Finding the entries of an archive: the central directory, and the scan that stands in for it.

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

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

constexpr std::string_view kNameNotUtf8 = "an entry name that is not UTF-8";

// What this container's own writer puts into every local header; the scan takes no other.
constexpr std::uint16_t kOwnVersionToExtract = 10;

/// Says which central record failed: "central record 3". One is made for each record, so it takes
/// no memory from the heap.
class CentralRecordTitle {
public:
    explicit CentralRecordTitle(unsigned number) {
        char* const digits = std::copy(kPrefix.begin(), kPrefix.end(), text_.begin());
        end_ = std::to_chars(digits, text_.data() + text_.size(), number).ptr;
    }
    CentralRecordTitle(const CentralRecordTitle&) = delete;
    CentralRecordTitle& operator=(const CentralRecordTitle&) = delete;

    [[nodiscard]] std::string_view text() const {
        return {text_.data(), static_cast<std::size_t>(end_ - text_.data())};
    }

private:
    static constexpr std::string_view kPrefix = "central record ";

    std::array<char, kPrefix.size() + std::numeric_limits<unsigned>::digits10 + 1> text_;
    const char* end_;
};

/// Returns the thread's last failure, short enough to leave room for another in its line.
std::string shortLastFailure() {
    constexpr std::size_t kLongest = 200;
    const char* const cause = platform::lastFailure();
    std::string_view text = cause != nullptr ? cause : "a record that cannot be used";
    if (text.size() > kLongest) {
        std::size_t size = kLongest;
        while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) {
            --size;
        }
        text = text.substr(0, size);
    }
    return std::string(text);
}

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
    // Where reading itself failed, as it does for a folder, that is the cause.
    if (stackSize_ < kDirectorySize) {
        platform::noteFailureUnlessNoted("no zip archive: only " + std::to_string(stackSize_) +
                                         " bytes");
        return false;
    }
    SDirectory end{};
    if (inputData_) {
        end =
            directoryFromBytes(archiveBytes({stackSize_ - kDirectorySize, kDirectorySize}).bytes());
    }
    if (end.Signature != kDirectorySignature) {
        platform::noteFailureUnlessNoted("no zip archive: no end record in its last 22 bytes");
        return false;
    }
    if (end.EntriesOnDisk != end.TotalEntries) {
        platform::noteFailureUnlessNoted(
            "end record whose counts differ: " + std::to_string(end.EntriesOnDisk) +
            " on this disk, " + std::to_string(end.TotalEntries) + " in total");
        return false;
    }
    if (end.DirectoryOffset > stackSize_) {
        platform::raise(
            ArchiveRangeError("central directory at offset " + std::to_string(end.DirectoryOffset) +
                              " of an archive of " + std::to_string(stackSize_) + " bytes"));
    }
    const Data directory = archiveBytes({end.DirectoryOffset, stackSize_ - end.DirectoryOffset});
    if (directory.empty()) {
        platform::noteFailureUnlessNoted("no central directory");
        return false;
    }
    if (!readCentralRecords(directory, end.EntriesOnDisk)) {
        scanInsteadOfDirectory(end.TotalEntries, end.DirectoryOffset);
    }
    return true;
}

bool ZipWrapper::readCentralRecords(const Data& directory, std::uint16_t count) {
    std::uint64_t position = 0;
    for (unsigned number = 1; number <= count; ++number) {
        const CentralRecordTitle title(number);
        const platform::FailureContext context(title.text());
        if (!readCentralRecord(directory, position)) {
            return false;
        }
    }
    return true;
}

bool ZipWrapper::readCentralRecord(const Data& directory, std::uint64_t& position) {
    if (position + kFileHeaderSize > directory.size()) {
        platform::noteFailure("beyond the end of the archive");
        return false;
    }
    SFileHeader header;
    FLReadSFileHeader(&header, directory.bytes() + position);
    if (header.Signature != kFileHeaderSignature) {
        platform::noteFailure("no signature of a central record");
        return false;
    }
    position += kFileHeaderSize;
    if (position + header.FilenameLength > directory.size()) {
        platform::noteFailure("a name that reaches beyond the end of the archive");
        return false;
    }
    const auto name =
        createStringFromFilenameRecord(directory.bytes() + position, header.FilenameLength);
    position +=
        std::uint64_t{header.FilenameLength} + header.CommentLength + header.ExtraFieldLength;
    const SZipFileInfo entry{header.LocalHeaderOffset, 0, header.CompressionMethod,
                             header.DataDescriptor.CompressedSize,
                             header.DataDescriptor.UncompressedSize};
    // An absent name breaks a condition there, whose failure is to tell why the name is absent.
    std::optional<platform::FailureContext> nameless;
    if (!name) {
        nameless.emplace(kNameNotUtf8);
    }
    return addFileWrapperForPath(name, entry);
}

void ZipWrapper::scanInsteadOfDirectory(std::uint32_t declaredEntriesCount,
                                        std::uint32_t searchEndPosition) {
    const std::string cause = shortLastFailure();
    {
        const std::string what = "scan of local headers (" + cause + ")";
        const platform::FailureContext context(what);
        scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(declaredEntriesCount,
                                                              searchEndPosition);
    }
    // An entry that the scan added may have cleared it.
    platform::noteFailureUnlessNoted(cause);
}

void ZipWrapper::scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(
    std::uint32_t, std::uint32_t searchEndPosition) {
    std::uint64_t position = 0;
    while (position <= searchEndPosition) {
        position = scanEntryAt(position);
    }
}

std::uint64_t ZipWrapper::scanEntryAt(std::uint64_t position) {
    SLocalFileHeader header;
    FLReadSLocalFileHeader(&header, archiveBytes({position, kLocalFileHeaderSize}).bytes());
    if (header.Signature != kLocalFileHeaderSignature) {
        static constexpr std::string_view kSignatureBytes = "PK\3\4";
        // A search in blocks of this size finds a place or raises.
        position = rangeOfData(Data::copyOf(kSignatureBytes), {position, 0}).location;
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
    const SZipFileInfo entry{0, dataOffsetBehind(header, position), header.CompressionMethod,
                             header.DataDescriptor.CompressedSize,
                             header.DataDescriptor.UncompressedSize};
    if (!addFileWrapperForPath(name, entry)) {
        return position + 1;
    }
    return std::uint64_t{entry.DataOffset} + entry.CompressedSize;
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
    // All broken conditions are reported before any has its effect.
    const bool hasBytes = zipRequire(bytes != nullptr, "bytes", 676);
    const bool isAnyName = zipRequire(count > 0, "count > 0", 677);
    const bool fitsBuffer = zipRequire(count < kNameBufferSize, "count < 4096", 678);
    if (!hasBytes || !isAnyName || !fitsBuffer) {
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
    if (!platform::isAscii(text) && !platform::utf16FromUtf8(text)) {
        platform::noteFailure(kNameNotUtf8);
        return std::nullopt;
    }
    return text;
}

}  // namespace parlavox
