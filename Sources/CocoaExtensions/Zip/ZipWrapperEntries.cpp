// Reading the contents of one entry of an archive.

#include <algorithm>
#include <cstring>
#include <limits>
#include <string>
#include <utility>

#include "Platform/Foundation/Buffer.h"
#include "Platform/Foundation/Failure.h"
#include "Sources/CocoaExtensions/Zip/ArchiveRangeError.h"
#include "Sources/CocoaExtensions/Zip/RawInflater.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {

using platform::Buffer;
using platform::Data;

namespace {

constexpr std::uint16_t kStored = 0;

// Methods 1 to 10 are all taken for deflate, by intention.
constexpr std::uint16_t kHighestMethod = 10;

Data joined(Buffer first, Buffer second) {
    Buffer whole = Buffer::zeroed(first.size() + second.size());
    std::memcpy(whole.bytes(), first.bytes(), first.size());
    std::memcpy(whole.bytes() + first.size(), second.bytes(), second.size());
    return Data::adopt(std::move(whole));
}

}  // namespace

std::uint32_t ZipWrapper::dataOffsetOf(const SZipFileInfo& entry) const {
    if (entry.DataOffset != 0) {
        return entry.DataOffset;
    }
    SLocalFileHeader header{};
    if (inputData_) {
        FLReadSLocalFileHeader(
            &header, archiveBytes({entry.LocalHeaderOffset, kLocalFileHeaderSize}).bytes());
    }
    return dataOffsetBehind(header, entry.LocalHeaderOffset);
}

std::uint32_t ZipWrapper::dataOffsetBehind(const SLocalFileHeader& header, std::uint64_t position) {
    const std::uint64_t offset =
        position + kLocalFileHeaderSize + header.FilenameLength + header.ExtraFieldLength;
    if (offset > std::numeric_limits<std::uint32_t>::max()) {
        // Wrapped, it would lead back into the archive, and the scan could go round for ever.
        platform::raise(ArchiveRangeError("data at offset " + std::to_string(offset) +
                                          ", beyond what an archive can be"));
    }
    return static_cast<std::uint32_t>(offset);
}

std::optional<Data> ZipWrapper::contentsToKeep(const SZipFileInfo& entry) {
    auto contents = dataForEntry(entry);
    if (!contents || entry.CompressionMethod != kStored) {
        return contents;
    }
    // Stored contents are copied, so that a finished wrapper does not hold the archive. The entries
    // of an honest one don't overlap, and their copies add up to less than its size; beyond that
    // they share its bytes, so that a hostile one cannot multiply them.
    if (contents->size() > inputData_->size() - copiedBytes_) {
        return contents;
    }
    copiedBytes_ += contents->size();
    return Data::copyOf(contents->span());
}

std::optional<Data> ZipWrapper::dataForEntry(SZipFileInfo entry) const {
    if (!inputData_) {
        return std::nullopt;
    }
    entry.DataOffset = dataOffsetOf(entry);
    if (entry.CompressionMethod == kStored) {
        return archiveBytes({entry.DataOffset, entry.UncompressedSize});
    }
    if (entry.CompressionMethod > kHighestMethod) {
        platform::noteFailure("compression method " + std::to_string(entry.CompressionMethod));
        return std::nullopt;
    }
    const Data compressed = archiveBytes({entry.DataOffset, entry.CompressedSize});
    if (!inflater_) {
        inflater_ = std::make_unique<RawInflater>();
    }
    RawInflater& inflater = *inflater_;
    if (const int code = inflater.begin(compressed.span()); code != RawInflater::kOk) {
        zipFail("inflateInit2 failed with code: " + std::to_string(static_cast<unsigned>(code)),
                789);
        return std::nullopt;
    }
    Buffer contents = Buffer::zeroed(entry.UncompressedSize);
    if (inflater.inflateWhole(contents.span())) {
        return Data::adopt(std::move(contents));
    }
    // The declared size counts, by intention: a shorter stream leaves zeros at the end, and one of
    // up to twice the size gives twice the size.
    contents = Buffer::zeroed(entry.UncompressedSize);
    const int code = inflater.inflateInto(contents.span());
    if (code == RawInflater::kStreamEnd) {
        return Data::adopt(std::move(contents));
    }
    if (code == RawInflater::kBufferError) {
        Buffer rest = Buffer::zeroed(entry.UncompressedSize);
        if (inflater.inflateInto(rest.span()) == RawInflater::kStreamEnd) {
            return joined(std::move(contents), std::move(rest));
        }
    }
    platform::noteFailure("damaged data");
    return std::nullopt;
}

bool ZipWrapper::writeEntry(SZipFileInfo entry,
                            const std::shared_ptr<platform::OutputStream>& toStream) const {
    if (!zipRequire(toStream != nullptr, "stream != nil", 707)) {
        return false;
    }
    entry.DataOffset = dataOffsetOf(entry);
    if (entry.CompressionMethod != kStored) {
        // Contents that cannot be had count as none at all, by intention: writing nothing succeeds.
        const Data contents = dataForEntry(entry).value_or(Data());
        const std::int64_t written = toStream->write(contents.span());
        return static_cast<std::uint32_t>(written) == static_cast<std::uint32_t>(contents.size());
    }
    // The loop never moves on and never writes a byte, by intention. It ends when the stream stops
    // reporting 0, which ours do at the second call; the entry is then kept in memory.
    constexpr std::uint64_t kCopySize = 4096;
    while (platform::intersectionRange({entry.DataOffset, kCopySize},
                                       {entry.DataOffset, entry.UncompressedSize})
               .length > 0) {
        if (toStream->write({}) != 0) {
            return false;
        }
    }
    return true;
}

}  // namespace parlavox
