// Writing an archive as a whole: its file, its directory, its place.

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <limits>
#include <numeric>
#include <utility>

#include "Platform/Foundation/BufferedOutputStream.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipFileHeader.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {

using platform::Atomically;
using platform::BufferedOutputStream;
using platform::ErrorLocation;
using platform::FileManager;
using platform::noteFailure;
using platform::OutputStream;
using platform::UpdateFilenames;
using platform::URL;

namespace {

constexpr std::uint64_t kLargestArchive = std::numeric_limits<std::uint32_t>::max();

}  // namespace

bool ZipWrapper::FLWriteToURL(const std::optional<URL>& url, Atomically atomically, UpdateFilenames,
                              ErrorLocation error) {
    platform::clearFailure();
    if (!zipRequire(url.has_value(), "url != nil", __LINE__)) {
        return false;
    }
    const std::string& destination = url->path();
    if (destination.empty()) {
        noteFailure("the archive's URL has no path");
        return false;
    }
    if (atomically == Atomically::No) {
        return writeArchive(destination, error);
    }
    const std::string temporary = platform::stringByAppendingPathComponent(
        FileManager::defaultManager().temporaryDirectory(), generatedUID());
    return writeArchive(temporary, error) && replace(temporary, destination);
}

bool ZipWrapper::writeToFile(const std::string& path, Atomically atomically,
                             UpdateFilenames updateFilenames) {
    return FLWriteToURL(URL::fileURLWithPath(path), atomically, updateFilenames, nullptr);
}

bool ZipWrapper::writeArchive(const std::string& path, ErrorLocation error) {
    const auto stream = std::make_shared<BufferedOutputStream>(
        OutputStream::outputStreamToFileAtPath(path, platform::FileAppending::No));
    stream->open();
    if (stream->streamStatus() != platform::StreamStatus::Open) {
        zipFail("Can't open out stream", __LINE__);
        return false;
    }
    fileHeaders_.emplace();
    std::uint32_t byteWritten = 0;
    const bool isWalked =
        writeFileWrappers(&fileWrappers(), this, std::nullopt, stream, byteWritten, error);
    if (!stream->flush() || !isWalked) {
        platform::noteFailureUnlessNoted(path + ": not all entries can be written");
        return false;
    }
    if (byteWritten + directorySize() + kDirectorySize > kLargestArchive) {
        noteFailure(path + ": the archive's directory ends beyond what an archive can be");
        return false;
    }
    writeDirectory(*stream, byteWritten);
    fileHeaders_.reset();
    if (!stream->flush()) {
        platform::noteFailureUnlessNoted(path + ": not all of the directory can be written");
    }
    const std::int64_t length = stream->currentFileOffset().value_or(0);
    stream->close();
    if (::truncate(path.c_str(), length) != 0) {
        noteFailure(path + ": " + std::strerror(errno));  // NOLINT(concurrency-mt-unsafe)
        return false;
    }
    return true;
}

std::uint64_t ZipWrapper::directorySize() const {
    return std::accumulate(fileHeaders_->begin(), fileHeaders_->end(), std::uint64_t{0},
                           [](std::uint64_t size, const auto& header) {
                               return size + kFileHeaderSize + header->fileNameData().size();
                           });
}

/// Writes the central records and the end record. Whether all of it went is not looked at, by
/// intention.
void ZipWrapper::writeDirectory(OutputStream& stream, std::uint32_t directoryOffset) const {
    SDirectory directory{};
    directory.Signature = kDirectorySignature;
    directory.DirectoryOffset = directoryOffset;
    directory.EntriesOnDisk = static_cast<std::uint16_t>(fileHeaders_->size());
    directory.TotalEntries = directory.EntriesOnDisk;
    for (const auto& header : *fileHeaders_) {
        const std::int64_t recordSize = FLWriteSFileHeader(&stream, header->fileHeader());
        const std::int64_t nameSize = stream.write(header->fileNameData().span());
        directory.DirectorySize += static_cast<std::uint32_t>(recordSize + nameSize);
    }
    (void)FLWriteSDirectory(&stream, directory);
}

/// Puts the archive at `written` in the place of what is at `destination`: by removal and copy, by
/// intention. Between the two there is no file at the destination.
bool ZipWrapper::replace(const std::string& written, const std::string& destination) {
    const FileManager& manager = FileManager::defaultManager();
    manager.setDelegate(std::static_pointer_cast<ZipWrapper>(shared_from_this()));
    if (manager.fileExistsAtPath(destination) && !manager.removeItemAtPath(destination)) {
        return false;
    }
    const bool isCopied = manager.copyItemAtPath(written, destination);
    (void)manager.removeItemAtPath(written);
    return isCopied;
}

}  // namespace parlavox
