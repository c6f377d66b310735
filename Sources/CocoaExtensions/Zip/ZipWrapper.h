// A folder of files that is one zip archive on disk.
//
// Reading.
//
// Opening reads the whole archive into memory (4 GiB - 1 at most), walks its central directory and
// builds a tree of file wrappers; where the central directory cannot be used, the local headers are
// scanned from the start. Entries up to 10 MiB are inflated into memory, larger ones into temporary
// files that vanish with their wrappers. Nothing is verified that the format does not need for
// that: no checksum, no local signature.
//
// Writing. The tree is walked in the order of its children; each entry is a local header, its name
// and its data, stored or deflated as the delegate says; the central directory and the end record
// follow. All entries are version 10 and bear no date, and an empty file gets no central record, by
// intention. Contents in files are copied piece by piece, unless they are to be deflated. What the
// format can't hold fails the write: names longer than 65,535 bytes, archives beyond 4 GiB - 1; so
// do folders nested more than 1,000 deep, and files that change or can't be read while they are
// written. The number of entries is kept in 16 bits, as the format has it.
//
// Sizes and offsets are bytes; names are UTF-8. Failures are quiet (null, false, absent), violated
// preconditions go to the assertion handler, and a place that lies outside of the archive raises
// ArchiveRangeError, which ends the opening. An archive is opened and used on one thread at a time;
// different archives on different threads.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/InputStream.h"
#include "Platform/Foundation/OutputStream.h"
#include "Platform/Foundation/Range.h"
#include "Platform/Foundation/URL.h"
#include "Sources/CocoaExtensions/Zip/ZipFileInfo.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapperDelegate.h"

namespace parlavox {

class RawInflater;
class ZipFileHeader;
struct SLocalFileHeader;

/// A directory wrapper that is read from, and saves itself as, one zip archive.
class ZipWrapper : public platform::FileWrapper, public platform::FileManagerDelegate {
public:
    using Delegate = std::shared_ptr<ZipWrapperDelegate>;

    /// Entries whose declared size is larger than this go to temporary files.
    static constexpr std::uint32_t kLargestEntryInMemory = 10 * 1024 * 1024;

    /// Returns an archive to be of `children` under exactly the given keys, without a delegate, so
    /// that all is stored. Raises as the inherited operation does.
    ///
    /// Selector: initDirectoryWithFileWrappers:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initDirectoryWithFileWrappers(
        std::vector<platform::FileWrapperEntry> children);

    /// Returns the archive at `path`. Null when it cannot be opened or is larger than 4 GiB - 1. A
    /// file that is no archive gives an empty folder.
    ///
    /// Requires: a path ("path != nil").
    ///
    /// Selector: initWithPath:withDelegate:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initWithPath(
        const std::optional<std::string>& path, Delegate withDelegate);

    /// Selector: initWithPath:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initWithPath(
        const std::optional<std::string>& path);

    /// Returns the archive that `contents` are, under the same rules.
    ///
    /// Requires: bytes ("data != nil").
    ///
    /// Selector: initRegularFileWithContents:withDelegate:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initRegularFileWithContents(
        std::optional<platform::Data> contents, Delegate withDelegate);

    /// Selector: initRegularFileWithContents:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initRegularFileWithContents(
        std::optional<platform::Data> contents);

    /// Opens `stream` and returns an archive of it. Called directly, no size is known, so the
    /// archive reads as empty. Null when the stream does not open.
    ///
    /// Requires: a stream ("stream != nil").
    ///
    /// Selector: initWithInputStream:withDelegate:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initWithInputStream(
        const std::shared_ptr<platform::InputStream>& stream, Delegate withDelegate);

    /// Returns an archive of `data`. Called directly, no size is known, so the archive reads as
    /// empty. Never null unless the data is absent ("data != nil").
    ///
    /// Selector: initWithData:withDelegate:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initWithData(
        std::optional<platform::Data> data, Delegate withDelegate);

    /// The same as initWithPath, by intention: the destination is the archive's path.
    ///
    /// Selector: initSymbolicLinkWithDestination:withDelegate:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initSymbolicLinkWithDestination(
        const std::optional<std::string>& destination, Delegate withDelegate);

    /// Selector: initSymbolicLinkWithDestination:
    [[nodiscard]] static std::shared_ptr<ZipWrapper> initSymbolicLinkWithDestination(
        const std::optional<std::string>& destination);

    explicit ZipWrapper(Creation key);
    ~ZipWrapper() override;

    /// The delegate is held strongly; null when there is none.
    [[nodiscard]] const Delegate& delegate() const { return delegate_; }
    void setDelegate(Delegate delegate) { delegate_ = std::move(delegate); }

    /// Always absent: an archive has no flat form of its own.
    ///
    /// Selector: serializedRepresentation
    [[nodiscard]] std::optional<platform::Data> serializedRepresentation() const override;

    /// Always false: an archive is never refreshed from disk.
    ///
    /// Selector: updateFromPath:
    bool updateFromPath(const std::string& path) override;

    /// Always false: a copy or removal stops at its first error.
    ///
    /// Selector: fileManager:shouldProceedAfterError:
    [[nodiscard]] bool fileManagerShouldProceedAfterError(const platform::FileManager& fileManager,
                                                          const platform::Error& error) override;

    /// Writes the archive to the file at `url` and returns whether all entries could be written
    /// and the file put there. Whether the directory behind them could be written is not looked at,
    /// by intention: where that counts, read it back. The thread's last failure tells.
    ///
    /// Atomically, it is first written to the temporary directory, where a failure may leave it;
    /// then what stood at `url` is removed and the archive copied there, with this wrapper as the
    /// delegate of the shared file manager, which it stays. Otherwise it is written in its place,
    /// where a failure leaves a part of it. `updateFilenames` is not used, and no error is made
    /// here.
    ///
    /// Requires: a URL ("url != nil").
    ///
    /// Selector: FLWriteToURL:atomically:updateFilenames:error:
    bool FLWriteToURL(const std::optional<platform::URL>& url, platform::Atomically atomically,
                      platform::UpdateFilenames updateFilenames, platform::ErrorLocation error);

    /// Selector: writeToFile:atomically:updateFilenames:
    bool writeToFile(const std::string& path, platform::Atomically atomically,
                     platform::UpdateFilenames updateFilenames) override;

    /// Writes the entries of `fileWrappers`, the children of `parentFileWrapper`, whose own entry
    /// is named `parentPath` (nothing at the top), and all below them. `byteWritten` grows by all
    /// that was written and is the place of what comes next. Returns whether all was written; the
    /// first failure ends it.
    ///
    /// Requires: all pointers but `error` ("fileWrappers != nil", "outStream != nil",
    /// "parentFileWrapper != nil"); an open stream.
    ///
    /// Selector: writeFileWrappers:parentFileWrapper:parentPath:outStream:byteWritten:error:
    bool writeFileWrappers(const platform::FileWrapperChildren* fileWrappers,
                           const FileWrapper* parentFileWrapper,
                           const std::optional<std::string>& parentPath,
                           const std::shared_ptr<platform::OutputStream>& outStream,
                           std::uint32_t& byteWritten, platform::ErrorLocation error);

    /// Does the same from a count of 0 and returns the count, whatever came of it.
    ///
    /// Selector: writeFileWrappers:parentFileWrapper:parentPath:outStream:
    std::uint32_t writeFileWrappers(const platform::FileWrapperChildren* fileWrappers,
                                    const FileWrapper* parentFileWrapper,
                                    const std::optional<std::string>& parentPath,
                                    const std::shared_ptr<platform::OutputStream>& outStream);

    /// Writes the entry of one child and, for a folder, all below it; otherwise as
    /// writeFileWrappers ("wrapper != nil", "outStream != nil", "parentFileWrapper != nil").
    ///
    /// Selector: writeFileWrapper:parentFileWrapper:parentPath:outStream:byteWritten:error:
    bool writeFileWrapper(const std::shared_ptr<FileWrapper>& wrapper,
                          const FileWrapper* parentFileWrapper,
                          const std::optional<std::string>& parentPath,
                          const std::shared_ptr<platform::OutputStream>& outStream,
                          std::uint32_t& byteWritten, platform::ErrorLocation error);

    /// Selector: writeFileWrapper:parentFileWrapper:parentPath:outStream:
    std::uint32_t writeFileWrapper(const std::shared_ptr<FileWrapper>& wrapper,
                                   const FileWrapper* parentFileWrapper,
                                   const std::optional<std::string>& parentPath,
                                   const std::shared_ptr<platform::OutputStream>& outStream);

    /// Copies an open stream to its end into another, 4,096 bytes at a time, and returns whether
    /// all of it went. Neither is opened or closed.
    ///
    /// Requires: both ("inputStream != nil", "outputStream != nil").
    ///
    /// Selector: writeDataFromStream:toStream:
    [[nodiscard]] static bool writeDataFromStream(
        const std::shared_ptr<platform::InputStream>& inputStream,
        const std::shared_ptr<platform::OutputStream>& toStream);

    /// Copies the file at `filePath` whole into an open stream and returns whether that was done.
    ///
    /// Requires: both ("filePath != nil", "outputStream != nil").
    ///
    /// Selector: writeDataFromFile:toStream:
    [[nodiscard]] static bool writeDataFromFile(
        const std::optional<std::string>& filePath,
        const std::shared_ptr<platform::OutputStream>& toStream);

    /// Returns a new random identifier: 36 characters, upper-case hexadecimal in groups of
    /// 8-4-4-4-12. Any thread.
    ///
    /// Selector: generatedUID
    [[nodiscard]] static std::string generatedUID();

    /// Returns the process's own folder for spooled entries, made at the first call directly inside
    /// the temporary directory and closed to other users. Absent when it cannot be made; the next
    /// call tries again. Any thread; of two first calls at once each may make a folder, and one of
    /// them is forgotten.
    ///
    /// Selector: tempFolderPath
    [[nodiscard]] static std::optional<std::string> tempFolderPath();

    /// Returns a path in that folder that no earlier call returned, ending in a dot and `extension`
    /// when one is given. Makes no file. Absent when there is no folder. Any thread.
    ///
    /// Selector: generatedTempFilePathWithExtension:
    [[nodiscard]] static std::optional<std::string> generatedTempFilePathWithExtension(
        const std::optional<std::string>& extension);

    /// Returns `data` as a raw deflate stream that is at most as long as the data, or nothing when
    /// it does not fit into that: such data is better stored.
    ///
    /// Requires: data ("data != nil"), a level from 0 to 10 ("level <= 10"); level 10 and empty
    /// data end in zlib's refusal, which goes to the assertion handler.
    ///
    /// Selector: compressedData:withCompressionLevel:
    [[nodiscard]] std::optional<platform::Data> compressedData(
        const std::optional<platform::Data>& data, std::uint32_t withCompressionLevel) const;

private:
    friend class ZipWrapperTestPeer;

    // Opening, step by step. Each runs on an object that is already shared.
    static std::shared_ptr<ZipWrapper> make();
    [[nodiscard]] bool initWithStreamContents(platform::InputStream* stream, Delegate withDelegate);
    [[nodiscard]] bool initWithBytes(std::optional<platform::Data> data, Delegate withDelegate);

    /// Reads the end record and the central directory; true when there was an end record.
    ///
    /// Selector: scanLocalHeader
    bool scanLocalHeader();

    /// Reads `count` central records from `directory`; false at the first that cannot be used.
    bool readCentralRecords(const platform::Data& directory, std::uint16_t count);

    /// Reads the central record at `position` and moves on to the next one.
    bool readCentralRecord(const platform::Data& directory, std::uint64_t& position);

    /// Scans the local headers of an archive whose central directory failed, as the thread's last
    /// failure tells.
    void scanInsteadOfDirectory(std::uint32_t declaredEntriesCount,
                                std::uint32_t searchEndPosition);

    /// Walks the local headers from the archive's start to `searchEndPosition`. `count`, that of
    /// the declared entries, is not used: the scan runs on positions only.
    ///
    /// Selector: scanZipFileInConsecutiveOrderWithDeclaredEntriesCount:searchEndPosition:
    void scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(std::uint32_t count,
                                                               std::uint32_t searchEndPosition);

    /// Adds the entry whose local header stands at `position`; returns where the next one may
    /// stand.
    std::uint64_t scanEntryAt(std::uint64_t position);

    /// Returns where `data` occurs first at or after the start of `range`, searching in blocks of
    /// the range's length or, when that is 0, of 100 times the data's.
    ///
    /// A block that reaches beyond the archive raises ArchiveRangeError, as intended. So a search
    /// that finds nothing ends with that error and not with an answer, except in blocks no longer
    /// than the data: the next would begin no further on, and one block without a match is "not
    /// found". Raw bytes are searched, so a block can always be read: the condition "bufferString",
    /// that it is text, cannot break here.
    ///
    /// Selector: rangeOfData:range:
    [[nodiscard]] platform::Range rangeOfData(const std::optional<platform::Data>& data,
                                              platform::Range range) const;

    /// Returns the name in `count` bytes at `bytes`, up to the first NUL; absent when it is not
    /// UTF-8.
    ///
    /// Selector: createStringFromFilenameRecord:count:
    [[nodiscard]] static std::optional<std::string> createStringFromFilenameRecord(
        const std::byte* bytes, std::int64_t count);

    /// Puts the entry named `path` into the tree; false when its contents cannot be had.
    ///
    /// Selector: addFileWrapperForPath:withEntry:
    bool addFileWrapperForPath(const std::optional<std::string>& path, SZipFileInfo withEntry);

    /// Makes the wrapper of a regular file; null when its contents cannot be had.
    std::shared_ptr<FileWrapper> fileWrapperForEntry(std::string_view name,
                                                     const SZipFileInfo& entry);
    std::shared_ptr<FileWrapper> spooledEntry(std::string_view name, const SZipFileInfo& entry);

    /// Adds `child` at the end of `path`, making the folders on the way; false when a component on
    /// the way is no folder and the assertion handler lets that pass.
    bool insert(const std::shared_ptr<FileWrapper>& child, std::string_view path);

    /// Returns what a wrapper of `entry` holds: its contents, which don't share the archive's bytes
    /// until those that were copied are as many as the archive has.
    std::optional<platform::Data> contentsToKeep(const SZipFileInfo& entry);

    /// Returns the contents of `entry`: the stored bytes, which share the archive's, or the
    /// inflated ones. Absent when they cannot be had.
    ///
    /// Selector: dataForEntry:
    [[nodiscard]] std::optional<platform::Data> dataForEntry(SZipFileInfo entry) const;

    /// Writes the contents of `entry` to an open stream. Of a stored entry nothing is ever written,
    /// as intended: see the body.
    ///
    /// Selector: writeEntry:toStream:
    [[nodiscard]] bool writeEntry(SZipFileInfo entry,
                                  const std::shared_ptr<platform::OutputStream>& toStream) const;

    /// Returns where the data of an entry begins, as its local header says. That need not lie
    /// inside the archive: what is taken from there must.
    [[nodiscard]] std::uint32_t dataOffsetOf(const SZipFileInfo& entry) const;

    /// Returns where the data behind the local header `header` at `position` begins. Raises
    /// ArchiveRangeError when 32 bits cannot hold that.
    [[nodiscard]] static std::uint32_t dataOffsetBehind(const SLocalFileHeader& header,
                                                        std::uint64_t position);

    /// Returns the archive's bytes in `range`. Raises ArchiveRangeError when it reaches beyond
    /// them.
    [[nodiscard]] platform::Data archiveBytes(platform::Range range) const;

    // Writing an archive, step by step.
    [[nodiscard]] bool writeArchive(const std::string& path, platform::ErrorLocation error);
    [[nodiscard]] std::uint64_t directorySize() const;
    void writeDirectory(platform::OutputStream& stream, std::uint32_t directoryOffset) const;
    [[nodiscard]] bool replace(const std::string& written, const std::string& destination);

    /// What an entry is to hold, and its records as far as they are known.
    struct OutgoingEntry;

    [[nodiscard]] bool writeEntryNamed(const std::string& name,
                                       const std::shared_ptr<FileWrapper>& wrapper,
                                       const std::shared_ptr<platform::OutputStream>& outStream,
                                       std::uint32_t& byteWritten);

    /// Finds out what the entry of a file holds; false when its contents can't be had.
    [[nodiscard]] bool takeContents(OutgoingEntry& entry,
                                    const std::shared_ptr<FileWrapper>& wrapper) const;
    [[nodiscard]] static bool takeFile(OutgoingEntry& entry, const std::string& path);
    [[nodiscard]] bool compress(OutgoingEntry& entry,
                                const std::shared_ptr<FileWrapper>& wrapper) const;
    [[nodiscard]] bool writeOutgoingEntry(OutgoingEntry& entry,
                                          const std::shared_ptr<platform::OutputStream>& stream,
                                          std::uint32_t& byteWritten);
    [[nodiscard]] bool addCentralRecord(const OutgoingEntry& entry, const platform::Data& name);
    [[nodiscard]] static bool writeContents(const OutgoingEntry& entry,
                                            const std::shared_ptr<platform::OutputStream>& stream);

    std::optional<platform::Data> inputData_;
    /// Serves all entries, as making one costs as much as inflating a short entry; there while the
    /// archive's bytes are.
    mutable std::unique_ptr<RawInflater> inflater_;
    std::uint32_t stackSize_ = 0;
    std::uint64_t copiedBytes_ = 0;
    Delegate delegate_;
    /// While an archive is written: its central records so far.
    std::optional<std::vector<std::shared_ptr<const ZipFileHeader>>> fileHeaders_;
    /// How many folders the walk is in.
    unsigned walkDepth_ = 0;
};

}  // namespace parlavox
