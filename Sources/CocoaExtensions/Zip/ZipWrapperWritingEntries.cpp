// Writing the entries of an archive.

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "Platform/Foundation/Checksum.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/PathString.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipFileHeader.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {

using platform::Data;
using platform::ErrorLocation;
using platform::FileManager;
using platform::FileWrapper;
using platform::FileWrapperChildren;
using platform::InputStream;
using platform::noteFailure;
using platform::OutputStream;
using platform::StreamStatus;

namespace {

constexpr std::uint64_t kLargest = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kLastEntryOffset = kLargest - 1;
constexpr std::size_t kLongestName = std::numeric_limits<std::uint16_t>::max();
constexpr std::size_t kPieceSize = 4096;
constexpr std::uint32_t kHighestLevel = 10;

/// Each folder takes room on the stack; no disk can hold so many in one another.
constexpr unsigned kDeepestFolder = 1000;

// Host 3, Unix, and zip 2.3; what extracts it needs to know only the first version, by intention.
constexpr std::uint16_t kVersionPacked = 0x0317;
constexpr std::uint16_t kVersionToExtract = 10;
constexpr std::uint16_t kDeflated = 8;

// Unix modes 040755 and 0100644 in the upper half.
constexpr std::uint32_t kFolderAttributes = 0x41ED'0000;
constexpr std::uint32_t kFileAttributes = 0x81A4'0000;

bool refuse(const std::string& cause) {
    noteFailure(cause);
    return false;
}

/// The checksum of a file, read piece by piece; that of no bytes when it does not open. Nothing
/// when it can't be read to its end.
std::optional<std::uint32_t> checksumOfFile(const std::string& path) {
    const auto stream = InputStream::inputStreamWithFileAtPath(path);
    stream->open();
    if (stream->streamStatus() != StreamStatus::Open) {
        if (stream->streamStatus() == StreamStatus::Error) {
            platform::log(stream->streamError()->description);
        }
        return 0;
    }
    std::array<std::byte, kPieceSize> buffer;
    std::uint32_t checksum = 0;
    std::int64_t count = 0;
    while ((count = stream->read(buffer)) > 0) {
        checksum = platform::checksumOfBytes(
            checksum, std::span(buffer).first(static_cast<std::size_t>(count)));
    }
    stream->close();
    return count == 0 ? std::optional(checksum) : std::nullopt;
}

/// Counts a folder of the walk while it lives.
class WalkStep {
public:
    explicit WalkStep(unsigned& depth) : depth_(depth) { ++depth_; }
    ~WalkStep() { --depth_; }
    WalkStep(const WalkStep&) = delete;
    WalkStep& operator=(const WalkStep&) = delete;

private:
    unsigned& depth_;
};

/// The name of a child's entry; nothing when the parent does not hold it, or when it is empty.
std::optional<std::string> entryNameOf(const std::shared_ptr<FileWrapper>& wrapper,
                                       const FileWrapper& parent,
                                       const std::optional<std::string>& parentPath) {
    auto name = parent.keyForFileWrapper(wrapper);
    if (!name) {
        noteFailure("a file that its folder does not hold");
        return std::nullopt;
    }
    if (parentPath) {
        name = platform::stringByAppendingPathComponent(*parentPath, *name);
    }
    if (wrapper->isDirectory()) {
        name->push_back('/');
    }
    if (name->empty() || name->size() > kLongestName) {
        noteFailure("a name of " + std::to_string(name->size()) +
                    " bytes, which no entry can have");
        return std::nullopt;
    }
    return name;
}

}  // namespace

struct ZipWrapper::OutgoingEntry {
    std::string name;
    std::uint64_t offset = 0;
    SLocalFileHeader header{};

    /// Where the data comes from; neither for a folder.
    std::optional<std::string> filePath;
    std::optional<Data> bytes;
    std::uint64_t dataSize = 0;

    [[nodiscard]] bool isFolder() const { return !bytes && !filePath; }
    [[nodiscard]] std::uint64_t end() const {
        return offset + kLocalFileHeaderSize + name.size() + dataSize;
    }
};

bool ZipWrapper::writeFileWrappers(const FileWrapperChildren* fileWrappers,
                                   const FileWrapper* parentFileWrapper,
                                   const std::optional<std::string>& parentPath,
                                   const std::shared_ptr<OutputStream>& outStream,
                                   std::uint32_t& byteWritten, ErrorLocation error) {
    // All broken conditions are reported before any has its effect.
    (void)zipRequire(fileWrappers != nullptr, "fileWrappers != nil", __LINE__);
    (void)zipRequire(outStream != nullptr, "outStream != nil", __LINE__);
    (void)zipRequire(parentFileWrapper != nullptr, "parentFileWrapper != nil", __LINE__);
    if (fileWrappers == nullptr || outStream == nullptr || parentFileWrapper == nullptr) {
        return false;
    }
    if (walkDepth_ == kDeepestFolder) {
        return refuse("folders are nested too deep");
    }
    const WalkStep step(walkDepth_);
    return std::all_of(fileWrappers->begin(), fileWrappers->end(), [&](const auto& entry) {
        return writeFileWrapper(entry.child, parentFileWrapper, parentPath, outStream, byteWritten,
                                error);
    });
}

std::uint32_t ZipWrapper::writeFileWrappers(const FileWrapperChildren* fileWrappers,
                                            const FileWrapper* parentFileWrapper,
                                            const std::optional<std::string>& parentPath,
                                            const std::shared_ptr<OutputStream>& outStream) {
    std::uint32_t byteWritten = 0;
    (void)writeFileWrappers(fileWrappers, parentFileWrapper, parentPath, outStream, byteWritten,
                            nullptr);
    return byteWritten;
}

bool ZipWrapper::writeFileWrapper(const std::shared_ptr<FileWrapper>& wrapper,
                                  const FileWrapper* parentFileWrapper,
                                  const std::optional<std::string>& parentPath,
                                  const std::shared_ptr<OutputStream>& outStream,
                                  std::uint32_t& byteWritten, ErrorLocation error) {
    (void)zipRequire(wrapper != nullptr, "wrapper != nil", __LINE__);
    (void)zipRequire(outStream != nullptr, "outStream != nil", __LINE__);
    (void)zipRequire(parentFileWrapper != nullptr, "parentFileWrapper != nil", __LINE__);
    if (wrapper == nullptr || outStream == nullptr || parentFileWrapper == nullptr) {
        return false;
    }
    auto name = entryNameOf(wrapper, *parentFileWrapper, parentPath);
    if (!name) {
        return false;
    }
    if (!writeEntryNamed(*name, wrapper, outStream, byteWritten)) {
        return false;
    }
    return !wrapper->isDirectory() || writeFileWrappers(&wrapper->fileWrappers(), wrapper.get(),
                                                        *name, outStream, byteWritten, error);
}

/// Writes the entry itself, without what lies below it.
bool ZipWrapper::writeEntryNamed(const std::string& name,
                                 const std::shared_ptr<FileWrapper>& wrapper,
                                 const std::shared_ptr<OutputStream>& outStream,
                                 std::uint32_t& byteWritten) {
    const platform::FailureContext context(name);
    OutgoingEntry entry;
    entry.name = name;
    entry.offset = static_cast<std::uint64_t>(outStream->currentFileOffset().value_or(0));
    if (entry.offset > kLastEntryOffset) {
        return refuse("begins beyond what an archive can be");
    }
    if (!wrapper->isDirectory() && !takeContents(entry, wrapper)) {
        return false;
    }
    if (!writeOutgoingEntry(entry, outStream, byteWritten)) {
        platform::noteFailureUnlessNoted("can't be written");
        return false;
    }
    return true;
}

std::uint32_t ZipWrapper::writeFileWrapper(const std::shared_ptr<FileWrapper>& wrapper,
                                           const FileWrapper* parentFileWrapper,
                                           const std::optional<std::string>& parentPath,
                                           const std::shared_ptr<OutputStream>& outStream) {
    std::uint32_t byteWritten = 0;
    (void)writeFileWrapper(wrapper, parentFileWrapper, parentPath, outStream, byteWritten, nullptr);
    return byteWritten;
}

// What an entry holds.

bool ZipWrapper::takeContents(OutgoingEntry& entry,
                              const std::shared_ptr<FileWrapper>& wrapper) const {
    const auto path = wrapper->contentFilePath();
    if (path && FileManager::defaultManager().isReadableFileAtPath(*path)) {
        if (!takeFile(entry, *path)) {
            return false;
        }
    } else {
        // A link has no entry of its own kind, and nothing that a file's could hold.
        entry.bytes = wrapper->isRegularFile() ? wrapper->regularFileContents() : std::nullopt;
        if (!entry.bytes) {
            platform::noteFailureUnlessNoted("the contents can't be had");
            return false;
        }
        entry.dataSize = entry.bytes->size();
        entry.header.DataDescriptor.CRC32 = platform::checksumOfBytes(0, entry.bytes->span());
    }
    if (entry.dataSize > kLargest) {
        return refuse("is larger than an archive can be");
    }
    entry.header.DataDescriptor.UncompressedSize = static_cast<std::uint32_t>(entry.dataSize);
    if (!compress(entry, wrapper)) {
        return false;
    }
    entry.header.DataDescriptor.CompressedSize = static_cast<std::uint32_t>(entry.dataSize);
    return true;
}

bool ZipWrapper::takeFile(OutgoingEntry& entry, const std::string& path) {
    const auto attributes = FileManager::defaultManager().attributesOfItemAtPath(path);
    const auto checksum = checksumOfFile(path);
    if (!checksum) {
        platform::noteFailureUnlessNoted("the contents can't be read to their end");
        return false;
    }
    entry.filePath = path;
    entry.dataSize = attributes ? attributes->size : 0;
    entry.header.DataDescriptor.CRC32 = *checksum;
    return true;
}

/// Deflates the contents if the delegate wants that and they shrink.
bool ZipWrapper::compress(OutgoingEntry& entry, const std::shared_ptr<FileWrapper>& wrapper) const {
    const auto level = delegate_ != nullptr ? delegate_->compressLevelForFileWrapper(wrapper, *this)
                                            : std::nullopt;
    if (level && *level > kHighestLevel) {
        zipFail("Invalid compression level", __LINE__);
    }
    if (level.value_or(0) == 0) {
        return true;
    }
    if (!entry.bytes) {
        entry.bytes = FileManager::defaultManager().contentsAtPath(*entry.filePath);
        if (!entry.bytes) {
            return true;
        }
        if (entry.bytes->size() != entry.dataSize) {
            return refuse("changed while it was written");
        }
    }
    if (auto compressed = compressedData(entry.bytes, *level)) {
        entry.header.CompressionMethod = kDeflated;
        entry.bytes = std::move(compressed);
        entry.dataSize = entry.bytes->size();
    }
    return true;
}

// Records and data.

bool ZipWrapper::writeOutgoingEntry(OutgoingEntry& entry,
                                    const std::shared_ptr<OutputStream>& stream,
                                    std::uint32_t& byteWritten) {
    if (entry.end() > kLargest) {
        return refuse("ends beyond what an archive can be");
    }
    entry.header.Signature = kLocalFileHeaderSignature;
    entry.header.VersionToExtract = kVersionToExtract;
    entry.header.FilenameLength = static_cast<std::uint16_t>(entry.name.size());
    if (FLWriteSLocalFileHeader(stream.get(), entry.header) != kLocalFileHeaderSize) {
        return false;
    }
    byteWritten += kLocalFileHeaderSize;
    const Data name = Data::copyOf(entry.name);
    if (stream->write(name.span()) != static_cast<std::int64_t>(name.size())) {
        return false;
    }
    byteWritten += static_cast<std::uint32_t>(name.size());
    // An empty file gets no central record, by intention.
    if (!entry.isFolder() && entry.dataSize == 0) {
        return true;
    }
    if (!addCentralRecord(entry, name)) {
        return false;
    }
    if (!entry.isFolder() && !writeContents(entry, stream)) {
        return false;
    }
    byteWritten += static_cast<std::uint32_t>(entry.dataSize);
    return true;
}

bool ZipWrapper::addCentralRecord(const OutgoingEntry& entry, const Data& name) {
    SFileHeader record{};
    record.Signature = kFileHeaderSignature;
    record.VersionPacked = kVersionPacked;
    record.VersionToExtract = kVersionToExtract;
    record.CompressionMethod = entry.header.CompressionMethod;
    record.DataDescriptor = entry.header.DataDescriptor;
    record.FilenameLength = entry.header.FilenameLength;
    record.ExternalFileAttr = entry.isFolder() ? kFolderAttributes : kFileAttributes;
    record.LocalHeaderOffset = static_cast<std::uint32_t>(entry.offset);
    auto header = ZipFileHeader::initWithFileHeader(record, name);
    if (header != nullptr && fileHeaders_) {
        fileHeaders_->push_back(header);
    }
    return header != nullptr;
}

bool ZipWrapper::writeContents(const OutgoingEntry& entry,
                               const std::shared_ptr<OutputStream>& stream) {
    if (entry.bytes) {
        return stream->write(entry.bytes->span()) == static_cast<std::int64_t>(entry.bytes->size());
    }
    if (!writeDataFromFile(entry.filePath, stream)) {
        return false;
    }
    const auto place = stream->currentFileOffset();
    const bool isAsExpected = !place || static_cast<std::uint64_t>(*place) == entry.end();
    return isAsExpected || refuse("changed while it was written");
}

bool ZipWrapper::writeDataFromStream(const std::shared_ptr<InputStream>& inputStream,
                                     const std::shared_ptr<OutputStream>& toStream) {
    const bool hasInput = zipRequire(inputStream != nullptr, "inputStream != nil", __LINE__);
    const bool hasOutput = zipRequire(toStream != nullptr, "outputStream != nil", __LINE__);
    if (!hasInput || !hasOutput) {
        return false;
    }
    std::array<std::byte, kPieceSize> buffer;
    while (true) {
        const std::int64_t count = inputStream->read(buffer);
        if (count <= 0) {
            return count == 0;
        }
        if (toStream->write(std::span(buffer).first(static_cast<std::size_t>(count))) != count) {
            return false;
        }
    }
}

bool ZipWrapper::writeDataFromFile(const std::optional<std::string>& filePath,
                                   const std::shared_ptr<OutputStream>& toStream) {
    const bool hasPath = zipRequire(filePath.has_value(), "filePath != nil", __LINE__);
    const bool hasOutput = zipRequire(toStream != nullptr, "outputStream != nil", __LINE__);
    if (!hasPath || !hasOutput) {
        return false;
    }
    const auto stream = InputStream::inputStreamWithFileAtPath(*filePath);
    stream->open();
    if (stream->streamStatus() != StreamStatus::Open) {
        return false;
    }
    const bool isCopied = writeDataFromStream(stream, toStream);
    stream->close();
    return isCopied;
}

}  // namespace parlavox
