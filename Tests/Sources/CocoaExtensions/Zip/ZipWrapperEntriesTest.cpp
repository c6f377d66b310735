#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Sources/CocoaExtensions/Zip/ArchiveRangeError.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipFileWrapper.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Sources/CocoaExtensions/Zip/RecordingHandler.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipTestFolder.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipWrapperTestPeer.h"
#include "Tools/samples/ZipBuilder.h"

namespace parlavox {
namespace {

using platform::Data;
using platform::FileWrapper;
using samples::Packing;
using samples::ZipBuilder;
using Peer = ZipWrapperTestPeer;

constexpr std::uint32_t kJustSpooled = 10 * 1024 * 1024 + 1;

/// An archive of one entry "a", and where it lies.
struct OneEntry {
    std::shared_ptr<ZipWrapper> wrapper;
    SZipFileInfo info;
};

OneEntry oneEntry(std::string_view contents, Packing packing) {
    ZipBuilder zip;
    const auto& entry = zip.add("a", contents, packing);
    const SZipFileInfo info{0, 0, entry.central.CompressionMethod,
                            entry.central.DataDescriptor.CompressedSize,
                            entry.central.DataDescriptor.UncompressedSize};
    return {Peer::unscanned(zip.finish()), info};
}

/// Answers each write with the next of its answers, the last one for ever.
class AnsweringStream final : public platform::OutputStream {
public:
    explicit AnsweringStream(std::vector<std::int64_t> answers) : answers_(std::move(answers)) {}

    void open() override { setStatus(platform::StreamStatus::Open); }
    void close() override { setStatus(platform::StreamStatus::Closed); }
    std::int64_t write(std::span<const std::byte> bytes) override {
        sizes.push_back(bytes.size());
        return answers_[std::min(sizes.size(), answers_.size()) - 1];
    }

    std::vector<std::size_t> sizes;

private:
    std::vector<std::int64_t> answers_;
};

TEST(ZipWrapperEntries, StoredContentsShareTheArchivesBytes) {
    const OneEntry entry = oneEntry("stored", Packing::Stored);
    const auto data = Peer::dataForEntry(*entry.wrapper, entry.info);
    ASSERT_TRUE(data);
    EXPECT_EQ(data->view(), "stored");
    EXPECT_EQ(data->bytes(), Peer::dataForEntry(*entry.wrapper, entry.info)->bytes());
}

/// Whether the bytes of a child of `archive` are among the bytes of `whole`.
bool sharesBytes(const FileWrapper& archive, std::string_view name, const Data& whole) {
    const Data part = *archive.fileWrapperForKey(name)->regularFileContents();
    const std::less<> isBefore;
    return !isBefore(part.bytes(), whole.bytes()) &&
           isBefore(part.bytes(), whole.bytes() + whole.size());
}

TEST(ZipWrapperEntries, WrappersOfAnHonestArchiveHoldNoneOfItsBytes) {
    ZipBuilder zip;
    zip.add("stored", std::string(1000, 's'), Packing::Stored);
    zip.add("deflated", std::string(1000, 'd'));
    zip.add("stored, too", std::string(3000, 't'), Packing::Stored);
    const Data archive = zip.finish();
    const auto wrapper = Peer::unscanned(archive);
    ASSERT_TRUE(Peer::scanLocalHeader(*wrapper));
    for (const char* name : {"stored", "deflated", "stored, too"}) {
        EXPECT_FALSE(sharesBytes(*wrapper, name, archive)) << name;
    }
    EXPECT_EQ(wrapper->fileWrapperForKey("stored, too")->regularFileContents()->view(),
              std::string(3000, 't'));
}

TEST(ZipWrapperEntries, OverlappingStoredEntriesShareWhatDoesNotFitTheArchivesSize) {
    constexpr std::uint32_t kSize = 1000;
    constexpr std::uint32_t kHeaderAndName = 31;
    ZipBuilder zip;
    zip.add("a", std::string(kSize, 's'), Packing::Stored);
    for (std::uint32_t i = 0; i < 2; ++i) {
        auto& again = zip.add(i == 0 ? "b" : "c", "", Packing::Stored).central;
        // Counted from where the builder puts the entry back to the start of the archive.
        again.LocalHeaderOffset = 0u - (kHeaderAndName + kSize + i * kHeaderAndName);
        again.DataDescriptor.UncompressedSize = kSize;
    }
    const Data archive = zip.finish();
    const auto wrapper = Peer::unscanned(archive);
    ASSERT_TRUE(Peer::scanLocalHeader(*wrapper));
    EXPECT_FALSE(sharesBytes(*wrapper, "a", archive));
    for (const char* name : {"b", "c"}) {
        EXPECT_EQ(wrapper->fileWrapperForKey(name)->regularFileContents()->view(),
                  std::string(kSize, 's'));
        EXPECT_TRUE(sharesBytes(*wrapper, name, archive)) << name;
    }
}

TEST(ZipWrapperEntries, OnlyTakingBytesBeyondTheArchiveRaises) {
    OneEntry entry = oneEntry("stored", Packing::Stored);
    entry.info.DataOffset = 100000;
    EXPECT_THROW((void)Peer::dataForEntry(*entry.wrapper, entry.info), ArchiveRangeError);
    const auto stream = std::make_shared<AnsweringStream>(std::vector<std::int64_t>{0, -1});
    EXPECT_FALSE(Peer::writeEntry(*entry.wrapper, entry.info, stream))
        << "writing a stored entry takes none";
    EXPECT_EQ(stream->sizes, std::vector<std::size_t>(2, 0));
    entry.info.CompressionMethod = 12;
    EXPECT_EQ(Peer::dataForEntry(*entry.wrapper, entry.info), std::nullopt)
        << "nor does a method that is not known";
    entry.info.CompressionMethod = 8;
    EXPECT_THROW((void)Peer::dataForEntry(*entry.wrapper, entry.info), ArchiveRangeError);
}

TEST(ZipWrapperEntries, DataOffsetThatNeedsMoreThan32BitsRaises) {
    const auto wrapper = Peer::unscanned(std::nullopt);
    const auto stream = std::make_shared<AnsweringStream>(std::vector<std::int64_t>{-1});
    SZipFileInfo info{0xFFFFFFFF - kLocalFileHeaderSize, 0, 0, 1, 1};
    EXPECT_FALSE(Peer::writeEntry(*wrapper, info, stream)) << "the last one that fits";
    ++info.LocalHeaderOffset;
    EXPECT_THROW((void)Peer::writeEntry(*wrapper, info, stream), ArchiveRangeError);
}

TEST(ZipWrapperEntries, DataOffsetIsUsedWhenItIsKnown) {
    OneEntry entry = oneEntry("stored", Packing::Stored);
    entry.info.LocalHeaderOffset = 0xFFFFFFFF;
    entry.info.DataOffset = 33;
    entry.info.UncompressedSize = 4;
    EXPECT_EQ(Peer::dataForEntry(*entry.wrapper, entry.info)->view(), "ored");
}

TEST(ZipWrapperEntries, MethodsAboveTenHaveNoContents) {
    OneEntry entry = oneEntry("stored", Packing::Stored);
    entry.info.CompressionMethod = 11;
    EXPECT_EQ(Peer::dataForEntry(*entry.wrapper, entry.info), std::nullopt);
}

TEST(ZipWrapperEntries, ContentsBeyondTwiceTheDeclaredSizeAreNone) {
    OneEntry entry = oneEntry(std::string(100, 'a'), Packing::Deflated);
    entry.info.UncompressedSize = 49;
    EXPECT_EQ(Peer::dataForEntry(*entry.wrapper, entry.info), std::nullopt);
    entry.info.UncompressedSize = 50;
    EXPECT_EQ(Peer::dataForEntry(*entry.wrapper, entry.info)->view(), std::string(100, 'a'));
}

TEST(ZipWrapperEntries, DamagedStreamsAreNone) {
    OneEntry entry = oneEntry(std::string(100, 'a'), Packing::Deflated);
    OneEntry cut = entry;
    cut.info.CompressedSize -= 1;
    EXPECT_EQ(Peer::dataForEntry(*cut.wrapper, cut.info), std::nullopt) << "cut off";
    // The first bits say: last block, of the kind that does not exist.
    OneEntry invalid = oneEntry("\x07 and more", Packing::Stored);
    invalid.info.CompressionMethod = 8;
    EXPECT_EQ(Peer::dataForEntry(*invalid.wrapper, invalid.info), std::nullopt);
}

TEST(ZipWrapperEntries, FinishedArchiveHoldsNoBytes) {
    const OneEntry entry = oneEntry("stored", Packing::Stored);
    const auto finished = Peer::unscanned(std::nullopt);
    EXPECT_EQ(Peer::dataForEntry(*finished, entry.info), std::nullopt);
}

TEST(ZipWrapperEntries, DeflatedEntryIsWrittenInOneCall) {
    const OneEntry entry = oneEntry(std::string(100, 'a'), Packing::Deflated);
    const auto stream = platform::OutputStream::outputStreamToMemory();
    stream->open();
    EXPECT_TRUE(Peer::writeEntry(*entry.wrapper, entry.info, stream));
    EXPECT_EQ(stream->dataWritten()->view(), std::string(100, 'a'));

    const auto counting = std::make_shared<AnsweringStream>(std::vector<std::int64_t>{100});
    EXPECT_TRUE(Peer::writeEntry(*entry.wrapper, entry.info, counting));
    EXPECT_EQ(counting->sizes, std::vector<std::size_t>{100});

    const auto failing = std::make_shared<AnsweringStream>(std::vector<std::int64_t>{99});
    EXPECT_FALSE(Peer::writeEntry(*entry.wrapper, entry.info, failing));
    const auto wrapped =
        std::make_shared<AnsweringStream>(std::vector<std::int64_t>{0x100000000 + 100});
    EXPECT_TRUE(Peer::writeEntry(*entry.wrapper, entry.info, wrapped))
        << "the counts are compared in 32 bits";
}

TEST(ZipWrapperEntries, MissingContentsAreWrittenAsNothingAndSucceed) {
    OneEntry entry = oneEntry(std::string(100, 'a'), Packing::Deflated);
    entry.info.CompressionMethod = 99;
    const auto stream = std::make_shared<AnsweringStream>(std::vector<std::int64_t>{0});
    EXPECT_TRUE(Peer::writeEntry(*entry.wrapper, entry.info, stream));
    EXPECT_EQ(stream->sizes, std::vector<std::size_t>{0});
    const auto failing = std::make_shared<AnsweringStream>(std::vector<std::int64_t>{-1});
    EXPECT_FALSE(Peer::writeEntry(*entry.wrapper, entry.info, failing));
}

TEST(ZipWrapperEntries, StoredEntryIsNeverWrittenAndTheLoopGoesOnWhileZeroIsReported) {
    const OneEntry entry = oneEntry("stored", Packing::Stored);
    const auto stream =
        std::make_shared<AnsweringStream>(std::vector<std::int64_t>{0, 0, 0, 0, 0, -1});
    EXPECT_FALSE(Peer::writeEntry(*entry.wrapper, entry.info, stream));
    EXPECT_EQ(stream->sizes, std::vector<std::size_t>(6, 0));
}

TEST(ZipWrapperEntries, StoredEntryWithoutBytesSucceedsAtOnce) {
    OneEntry entry = oneEntry("stored", Packing::Stored);
    entry.info.UncompressedSize = 0;
    const auto stream = std::make_shared<AnsweringStream>(std::vector<std::int64_t>{0});
    EXPECT_TRUE(Peer::writeEntry(*entry.wrapper, entry.info, stream));
    EXPECT_TRUE(stream->sizes.empty());
}

TEST(ZipWrapperEntries, StoredEntryEndsAtOurOwnStreamsSecondCall) {
    const OneEntry entry = oneEntry("stored", Packing::Stored);
    const auto stream = platform::OutputStream::outputStreamToMemory();
    stream->open();
    EXPECT_FALSE(Peer::writeEntry(*entry.wrapper, entry.info, stream));
    EXPECT_TRUE(stream->dataWritten()->empty());
}

TEST(ZipWrapperEntries, WritingNeedsAStream) {
    const OneEntry entry = oneEntry("stored", Packing::Stored);
    try {
        (void)Peer::writeEntry(*entry.wrapper, entry.info, nullptr);
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: stream != nil");
        EXPECT_EQ(failure.file(), kZipSourceFile);
        EXPECT_EQ(failure.line(), 707u);
    }
    RecordingHandler handler;
    const platform::AssertionHandlerScope scope(handler);
    EXPECT_FALSE(Peer::writeEntry(*entry.wrapper, entry.info, nullptr));
    EXPECT_EQ(handler.reported, (std::vector<std::string>{"stream != nil @707"}));
}

TEST(ZipWrapperEntries, AddingNeedsAPathAndAFolder) {
    const auto wrapper = Peer::unscanned(Data());
    try {
        (void)Peer::addFileWrapperForPath(*wrapper, std::nullopt, {});
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: path != nil");
        EXPECT_EQ(failure.file(), kZipSourceFile);
        EXPECT_EQ(failure.line(), 830u);
    }
    class Unmade final : public ZipWrapper {
    public:
        static std::shared_ptr<Unmade> make() { return std::make_shared<Unmade>(Creation()); }
        explicit Unmade(Creation key) : ZipWrapper(key) {}
    };
    try {
        (void)Peer::addFileWrapperForPath(*Unmade::make(), "a", {});
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: [self isDirectory]");
        EXPECT_EQ(failure.file(), kZipSourceFile);
        EXPECT_EQ(failure.line(), 831u);
    }
}

TEST(ZipWrapperEntries, AllBrokenConditionsOfAddingAreReportedInTheirOrder) {
    class Unmade final : public ZipWrapper {
    public:
        static std::shared_ptr<Unmade> make() { return std::make_shared<Unmade>(Creation()); }
        explicit Unmade(Creation key) : ZipWrapper(key) {}
    };
    RecordingHandler handler;
    const platform::AssertionHandlerScope scope(handler);
    EXPECT_FALSE(Peer::addFileWrapperForPath(*Unmade::make(), std::nullopt, {}));
    EXPECT_EQ(handler.reported,
              (std::vector<std::string>{"path != nil @830", "[self isDirectory] @831"}));
}

// Spooling.

TEST(ZipWrapperSpooling, LargeDeflatedEntryLiesInAFileThatGoesWithItsWrapper) {
    const ZipTestFolder folder;
    const std::string text(kJustSpooled, 'a');
    ZipBuilder zip;
    zip.add("folder/text.plist", text);
    zip.add("just below.txt", std::string(kJustSpooled - 1, 'b'));
    auto archive = ZipWrapper::initRegularFileWithContents(zip.finish());
    auto large = archive->fileWrapperForKey("folder")->fileWrapperForKey("text.plist");
    const auto path = large->contentFilePath();
    ASSERT_TRUE(path);
    EXPECT_TRUE(path->ends_with(".plist")) << *path;
    EXPECT_EQ(std::filesystem::file_size(*path), kJustSpooled);
    EXPECT_EQ(large->regularFileContents()->view(), text);
    EXPECT_EQ(large->filename(), "text.plist") << "the preferred name where there is no other";
    EXPECT_EQ(archive->fileWrapperForKey("just below.txt")->contentFilePath(), std::nullopt);
    EXPECT_EQ(folder.spooledFiles(), 1u);

    archive.reset();
    EXPECT_TRUE(std::filesystem::exists(*path)) << "the wrapper still lives";
    large.reset();
    EXPECT_FALSE(std::filesystem::exists(*path));
}

TEST(ZipWrapperSpooling, LargeStoredEntryEndsUpInMemory) {
    const ZipTestFolder folder;
    ZipBuilder zip;
    zip.add("a.bin", std::string(kJustSpooled, 's'), Packing::Stored);
    const auto archive = ZipWrapper::initRegularFileWithContents(zip.finish());
    const auto large = archive->fileWrapperForKey("a.bin");
    EXPECT_EQ(large->contentFilePath(), std::nullopt);
    EXPECT_EQ(large->regularFileContents()->size(), kJustSpooled);
    EXPECT_EQ(folder.spooledFiles(), 1u) << "the file that was begun is left";
}

TEST(ZipWrapperSpooling, WithoutATemporaryFolderEntriesStayInMemory) {
    const ZipTestFolder folder;
    setenv("TMPDIR", (folder.path() / "missing").c_str(), 1);
    ZipBuilder zip;
    zip.add("a.bin", std::string(kJustSpooled, 'a'));
    const auto archive = ZipWrapper::initRegularFileWithContents(zip.finish());
    setenv("TMPDIR", folder.path().c_str(), 1);
    EXPECT_EQ(archive->fileWrapperForKey("a.bin")->contentFilePath(), std::nullopt);
    EXPECT_EQ(archive->fileWrapperForKey("a.bin")->regularFileContents()->size(), kJustSpooled);
    EXPECT_EQ(platform::lastFailure(), nullptr) << "as the entry is there, nothing failed";
}

TEST(ZipWrapperSpooling, ErrorThatEndsTheOpeningLeavesNoFile) {
    const ZipTestFolder folder;
    ZipBuilder zip;
    zip.add("a.bin", std::string(kJustSpooled, 'a')).central.DataDescriptor.CompressedSize =
        0x7FFFFFFF;
    EXPECT_THROW((void)ZipWrapper::initRegularFileWithContents(zip.finish()), ArchiveRangeError);
    EXPECT_EQ(folder.spooledFiles(), 0u);
}

TEST(ZipWrapperSpooling, DamagedLargeEntryIsSpooledAsNothing) {
    const ZipTestFolder folder;
    ZipBuilder zip;
    zip.add("a.bin", std::string(kJustSpooled, 'a')).central.DataDescriptor.CompressedSize = 10;
    const auto archive = ZipWrapper::initRegularFileWithContents(zip.finish());
    EXPECT_EQ(archive->fileWrapperForKey("a.bin")->regularFileContents()->size(), 0u);
}

TEST(ZipFileWrapper, ReadsItsFileAtEachCall) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("spool", "first");
    const auto wrapper = ZipFileWrapper::initWithPath(path);
    EXPECT_TRUE(wrapper->isRegularFile());
    EXPECT_EQ(wrapper->contentFilePath(), path);
    EXPECT_EQ(wrapper->regularFileContents()->view(), "first");
    folder.write("spool", "second");
    EXPECT_EQ(wrapper->regularFileContents()->view(), "second");
    std::filesystem::remove(path);
    EXPECT_EQ(wrapper->regularFileContents(), std::nullopt);
}

TEST(ZipFileWrapper, EndsQuietlyWithoutItsFileAndSparesFolders) {
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.path("folder"));
    platform::clearFailure();
    for (const char* name : {"missing", "folder"}) {
        (void)ZipFileWrapper::initWithPath(folder.path(name));
    }
    EXPECT_TRUE(std::filesystem::exists(folder.path("folder")));
    EXPECT_EQ(platform::lastFailure(), nullptr);
}

TEST(ZipFileWrapper, PrefersTheNameOnDisk) {
    const auto wrapper = ZipFileWrapper::initWithPath(std::nullopt);
    EXPECT_EQ(wrapper->filename(), std::nullopt);
    wrapper->setPreferredFilename("preferred");
    EXPECT_EQ(wrapper->filename(), "preferred");
    wrapper->setFilename("on disk");
    EXPECT_EQ(wrapper->filename(), "on disk");
}

TEST(ZipFileWrapper, WithoutAPathItIsAnEmptyFile) {
    const auto wrapper = ZipFileWrapper::initWithPath(std::nullopt);
    EXPECT_EQ(wrapper->contentFilePath(), std::nullopt);
    EXPECT_EQ(wrapper->regularFileContents(), Data());
}

TEST(ZipFileWrapper, WritesItsContentsAndKeepsItsNames) {
    const test::TemporaryFolder folder;
    const auto wrapper = ZipFileWrapper::initWithPath(folder.write("spool", "contents"));
    for (const auto atomically : {platform::Atomically::No, platform::Atomically::Yes}) {
        EXPECT_TRUE(
            wrapper->writeToFile(folder.path("copy"), atomically, platform::UpdateFilenames::Yes));
        EXPECT_EQ(folder.read("copy"), "contents");
        EXPECT_EQ(wrapper->filename(), std::nullopt) << "the flag is not used";
    }
    EXPECT_FALSE(wrapper->writeToFile(folder.path("missing/copy"), platform::Atomically::No,
                                      platform::UpdateFilenames::No));
    std::filesystem::remove(folder.path("spool"));
    EXPECT_FALSE(wrapper->writeToFile(folder.path("copy"), platform::Atomically::No,
                                      platform::UpdateFilenames::No));
}

}  // namespace
}  // namespace parlavox
