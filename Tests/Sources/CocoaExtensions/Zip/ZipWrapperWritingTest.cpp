#include <gtest/gtest.h>
#include <sys/resource.h>
#include <zlib.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Log.h"
#include "Sources/CocoaExtensions/Zip/ZipDirectoryWrapper.h"
#include "Sources/CocoaExtensions/Zip/ZipFileWrapper.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Sources/CocoaExtensions/Zip/RecordingHandler.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipTestFolder.h"
#include "Tests/Support/TemporaryFolder.h"

namespace parlavox {
namespace {

namespace fs = std::filesystem;
using platform::Atomically;
using platform::Data;
using platform::FileManager;
using platform::FileWrapper;
using platform::FileWrapperEntry;
using platform::InputStream;
using platform::OutputStream;
using platform::UpdateFilenames;
using platform::URL;

using Wrapper = std::shared_ptr<FileWrapper>;

Wrapper file(std::string_view contents) {
    return FileWrapper::initRegularFileWithContents(Data::copyOf(contents));
}

Wrapper folder(std::vector<FileWrapperEntry> children) {
    return FileWrapper::initDirectoryWithFileWrappers(std::move(children));
}

/// Answers one level for every file.
class LevelDelegate final : public ZipWrapperDelegate {
public:
    explicit LevelDelegate(std::uint32_t level) : level_(level) {}

    std::optional<std::uint32_t> compressLevelForFileWrapper(const Wrapper& wrapper,
                                                             const ZipWrapper& archive) override {
        asked.emplace_back(wrapper, &archive);
        return level_;
    }

    std::vector<std::pair<Wrapper, const ZipWrapper*>> asked;

private:
    std::uint32_t level_;
};

struct Entry {
    std::string name;
    SLocalFileHeader local;
    std::string data;
};

struct Archive {
    std::vector<Entry> entries;
    std::vector<std::pair<std::string, SFileHeader>> records;
    SDirectory directory{};
};

/// Takes an archive apart that is laid out without gaps.
Archive parsed(std::string_view bytes) {
    Archive archive;
    std::size_t at = 0;
    const auto signature = [&] {
        return bytes.substr(at, 4);
    };
    while (signature() == "PK\3\4") {
        Entry entry;
        FLReadSLocalFileHeader(&entry.local, bytes.data() + at);
        at += kLocalFileHeaderSize;
        entry.name = bytes.substr(at, entry.local.FilenameLength);
        at += entry.name.size();
        entry.data = bytes.substr(at, entry.local.DataDescriptor.CompressedSize);
        at += entry.data.size();
        archive.entries.push_back(std::move(entry));
    }
    EXPECT_EQ(signature(),
              archive.records.empty() && signature() == "PK\5\6" ? "PK\5\6" : "PK\1\2");
    while (signature() == "PK\1\2") {
        SFileHeader record{};
        FLReadSFileHeader(&record, bytes.data() + at);
        at += kFileHeaderSize;
        archive.records.emplace_back(bytes.substr(at, record.FilenameLength), record);
        at += record.FilenameLength;
    }
    EXPECT_EQ(signature(), "PK\5\6");
    EXPECT_EQ(bytes.size(), at + kDirectorySize);
    archive.directory = directoryFromBytes(bytes.data() + at);
    return archive;
}

class ZipWrapperWriting : public testing::Test {
protected:
    /// Writes the archive in its place and returns its bytes.
    std::string bytesOf(const std::shared_ptr<ZipWrapper>& archive) {
        EXPECT_TRUE(archive->writeToFile(disk.path("out"), Atomically::No, UpdateFilenames::No));
        return disk.read("out");
    }

    std::string bytesOf(std::vector<FileWrapperEntry> children,
                        std::shared_ptr<ZipWrapperDelegate> delegate = nullptr) {
        const auto archive = ZipWrapper::initDirectoryWithFileWrappers(std::move(children));
        archive->setDelegate(std::move(delegate));
        return bytesOf(archive);
    }

    // Not inside of the temporary directory, which comes after it.
    test::TemporaryFolder disk;
    const ZipTestFolder temporary;
};

TEST_F(ZipWrapperWriting, StoresWithoutADelegate) {
    const Archive archive =
        parsed(bytesOf({{"contents.plist", file("one")}, {"text.plist", file("three")}}));
    ASSERT_EQ(archive.entries.size(), 2u);
    EXPECT_EQ(archive.entries[0].name, "contents.plist");
    EXPECT_EQ(archive.entries[0].data, "one");
    EXPECT_EQ(archive.entries[1].name, "text.plist");
    EXPECT_EQ(archive.entries[1].data, "three");
    ASSERT_EQ(archive.records.size(), 2u);
    std::uint32_t offset = 0;
    for (std::size_t i = 0; i < 2; i++) {
        const auto& [name, record] = archive.records[i];
        const Entry& entry = archive.entries[i];
        EXPECT_EQ(name, entry.name);
        EXPECT_EQ(entry.local.CompressionMethod, 0);
        EXPECT_EQ(record.CompressionMethod, 0);
        EXPECT_EQ(entry.local.DataDescriptor.CRC32,
                  crc32(0, reinterpret_cast<const Bytef*>(entry.data.data()),
                        static_cast<uInt>(entry.data.size())));
        EXPECT_EQ(record.DataDescriptor.CRC32, entry.local.DataDescriptor.CRC32);
        EXPECT_EQ(record.DataDescriptor.CompressedSize, entry.data.size());
        EXPECT_EQ(record.DataDescriptor.UncompressedSize, entry.data.size());
        EXPECT_EQ(record.LocalHeaderOffset, offset);
        offset +=
            kLocalFileHeaderSize + static_cast<std::uint32_t>(name.size() + entry.data.size());
    }
    EXPECT_EQ(archive.directory.EntriesOnDisk, 2);
    EXPECT_EQ(archive.directory.TotalEntries, 2);
    EXPECT_EQ(archive.directory.DirectoryOffset, offset);
    EXPECT_EQ(archive.directory.DirectorySize, 2 * kFileHeaderSize + 14 + 10);
    EXPECT_EQ(archive.directory.DiskNumbers, 0u);
    EXPECT_EQ(archive.directory.CommentLength, 0);
}

TEST_F(ZipWrapperWriting, EveryRecordHasTheSameVersionAndNoDate) {
    const Archive archive = parsed(bytesOf({{"a", file(std::string(1000, 'x'))}, {"d", folder({})}},
                                           std::make_shared<LevelDelegate>(6)));
    ASSERT_EQ(archive.records.size(), 2u);
    EXPECT_EQ(archive.entries[0].local.CompressionMethod, 8);
    for (const Entry& entry : archive.entries) {
        EXPECT_EQ(entry.local.VersionToExtract, 10) << "deflated ones, too";
        EXPECT_EQ(entry.local.GeneralBitFlag, 0);
        EXPECT_EQ(entry.local.LastModFileTime, 0);
        EXPECT_EQ(entry.local.LastModFileDate, 0);
        EXPECT_EQ(entry.local.ExtraFieldLength, 0);
    }
    for (const auto& [name, record] : archive.records) {
        EXPECT_EQ(record.VersionPacked, 0x0317);
        EXPECT_EQ(record.VersionToExtract, 10);
        EXPECT_EQ(record.GeneralBitFlag, 0);
        EXPECT_EQ(record.LastModFileTime, 0);
        EXPECT_EQ(record.LastModFileDate, 0);
        EXPECT_EQ(record.ExtraFieldLength, 0);
        EXPECT_EQ(record.CommentLength, 0);
        EXPECT_EQ(record.DiskNumberStart, 0);
        EXPECT_EQ(record.InternalFileAttr, 0);
    }
}

TEST_F(ZipWrapperWriting, DeflatesWhatShrinks) {
    const std::string longText(100'000, 'x');
    const auto delegate = std::make_shared<LevelDelegate>(1);
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers(
        {{"long", file(longText)}, {"short", file("\x13\x8f\x02")}, {"d", folder({})}});
    archive->setDelegate(delegate);
    const Archive written = parsed(bytesOf(archive));
    EXPECT_EQ(written.entries[0].local.CompressionMethod, 8);
    EXPECT_EQ(written.entries[0].local.DataDescriptor.UncompressedSize, longText.size());
    EXPECT_LT(written.entries[0].data.size(), 1000u);
    EXPECT_EQ(written.entries[1].local.CompressionMethod, 0);
    EXPECT_EQ(written.entries[1].data, "\x13\x8f\x02");
    ASSERT_EQ(delegate->asked.size(), 2u) << "not for folders";
    EXPECT_EQ(delegate->asked[0].first, archive->fileWrapperForKey("long"));
    EXPECT_EQ(delegate->asked[0].second, archive.get());
    const auto read = ZipWrapper::initWithPath(disk.path("out"));
    EXPECT_EQ(read->fileWrapperForKey("long")->regularFileContents(), Data::copyOf(longText));
}

TEST_F(ZipWrapperWriting, LevelZeroStores) {
    const Archive archive =
        parsed(bytesOf({{"a", file(std::string(100, 'x'))}}, std::make_shared<LevelDelegate>(0)));
    EXPECT_EQ(archive.entries[0].local.CompressionMethod, 0);
    EXPECT_EQ(archive.entries[0].data, std::string(100, 'x'));
}

TEST_F(ZipWrapperWriting, LevelsThatAreNoneAreReported) {
    const struct {
        std::uint32_t level;
        std::vector<std::string> reasons;
    } kRows[] = {
        {10, {"-2"}},
        {11, {"Invalid compression level", "level <= 10", "-2"}},
        // To zlib it is -1, its own choice of a level.
        {0xFFFFFFFF, {"Invalid compression level", "level <= 10"}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.level);
        RecordingHandler handler;
        {
            const platform::AssertionHandlerScope scope(handler);
            const Archive archive =
                parsed(bytesOf({{"a", file("bytes")}}, std::make_shared<LevelDelegate>(row.level)));
            EXPECT_EQ(archive.entries[0].data, "bytes") << "it is stored then";
        }
        std::vector<std::string> reasons;
        for (const std::string& reported : handler.reported) {
            reasons.push_back(reported.substr(0, reported.find(" @")));
        }
        EXPECT_EQ(reasons, row.reasons);
    }
}

TEST_F(ZipWrapperWriting, FoldersEndInASeparator) {
    const Archive archive = parsed(
        bytesOf({{"images", folder({{"a.png", file("png")}, {"deep", folder({{"b", file("b")}})}})},
                 {"empty", folder({})}}));
    std::vector<std::string> names;
    for (const auto& [name, record] : archive.records) {
        names.push_back(name);
        const bool isFolder = name.ends_with('/');
        EXPECT_EQ(record.ExternalFileAttr, isFolder ? 0x41ED0000u : 0x81A40000u);
        if (isFolder) {
            EXPECT_EQ(record.DataDescriptor.CRC32, 0u);
            EXPECT_EQ(record.DataDescriptor.CompressedSize, 0u);
            EXPECT_EQ(record.DataDescriptor.UncompressedSize, 0u);
            EXPECT_EQ(record.CompressionMethod, 0);
        }
    }
    EXPECT_EQ(names, (std::vector<std::string>{"images/", "images/a.png", "images/deep/",
                                               "images/deep/b", "empty/"}));
}

TEST_F(ZipWrapperWriting, AnEmptyFileIsInNoDirectory) {
    const Archive archive = parsed(bytesOf({{"empty", file("")}, {"full", file("x")}}));
    ASSERT_EQ(archive.entries.size(), 2u);
    EXPECT_EQ(archive.entries[0].name, "empty");
    ASSERT_EQ(archive.records.size(), 1u);
    EXPECT_EQ(archive.records[0].first, "full");
    EXPECT_EQ(archive.records[0].second.LocalHeaderOffset, 35u);
    EXPECT_EQ(archive.directory.TotalEntries, 1);
}

TEST_F(ZipWrapperWriting, AnArchiveOfNothingIsAnEndRecord) {
    const std::string bytes = bytesOf(std::vector<FileWrapperEntry>{});
    EXPECT_EQ(bytes, "PK\5\6" + std::string(18, '\0'));
}

TEST_F(ZipWrapperWriting, KeysAreTheNames) {
    const Wrapper child = file("x");
    child->setPreferredFilename("preferred");
    const Archive archive = parsed(bytesOf({{"key", child}}));
    EXPECT_EQ(archive.entries[0].name, "key");
}

TEST_F(ZipWrapperWriting, ContentsInFilesAreTakenFromThere) {
    std::string contents;
    while (contents.size() < 3 * 4096 + 7) {
        contents += std::to_string(contents.size());
    }
    for (const std::uint32_t level : {0u, 1u}) {
        const auto spooled = ZipFileWrapper::initWithPath(disk.write("spooled", contents));
        const Archive archive =
            parsed(bytesOf({{"a", spooled}}, std::make_shared<LevelDelegate>(level)));
        EXPECT_EQ(archive.entries[0].local.CompressionMethod, level == 0 ? 0 : 8);
        EXPECT_EQ(archive.entries[0].local.DataDescriptor.UncompressedSize, contents.size());
        const auto read = ZipWrapper::initWithPath(disk.path("out"));
        EXPECT_EQ(read->fileWrapperForKey("a")->regularFileContents(), Data::copyOf(contents));
    }
}

TEST_F(ZipWrapperWriting, AtomicallyReplacesAndLeavesNothing) {
    disk.write("out", std::string(5000, 'x'));
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("bytes")}});
    platform::ErrorLocation none = nullptr;
    EXPECT_TRUE(archive->FLWriteToURL(URL::fileURLWithPath(disk.path("out")), Atomically::Yes,
                                      UpdateFilenames::Yes, none));
    EXPECT_EQ(parsed(disk.read("out")).entries[0].data, "bytes");
    EXPECT_TRUE(fs::is_empty(temporary.path()));
    EXPECT_EQ(archive->filename(), std::nullopt) << "names are not updated";
    EXPECT_EQ(FileManager::defaultManager().delegate(), archive);
}

TEST_F(ZipWrapperWriting, AtomicallyReplacesAFolder) {
    disk.write("out/inner/file", "x");
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("bytes")}});
    EXPECT_TRUE(archive->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
    EXPECT_EQ(parsed(disk.read("out")).entries[0].data, "bytes");
}

TEST_F(ZipWrapperWriting, InItsPlaceTheArchiveHasItsOwnLength) {
    disk.write("out", std::string(5000, 'x'));
    parsed(bytesOf({{"a", file("bytes")}}));
}

TEST_F(ZipWrapperWriting, IsNoPlainWrapper) {
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("x")}});
    EXPECT_EQ(archive->serializedRepresentation(), std::nullopt);
    EXPECT_FALSE(archive->updateFromPath(disk.write("other", "x")));
    EXPECT_EQ(archive->delegate(), nullptr);
    EXPECT_FALSE(archive->fileManagerShouldProceedAfterError(FileManager::defaultManager(), {}));
}

// The walk on its own.

std::shared_ptr<OutputStream> memory() {
    auto stream = OutputStream::outputStreamToMemory();
    stream->open();
    return stream;
}

TEST_F(ZipWrapperWriting, ShortFormsCountWhatWasWritten) {
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers(
        {{"a", file("12345")}, {"d", folder({{"b", file("1")}})}});
    const auto stream = memory();
    EXPECT_EQ(
        archive->writeFileWrappers(&archive->fileWrappers(), archive.get(), std::nullopt, stream),
        30 + 1 + 5 + 30 + 2 + 30 + 3 + 1u);
    EXPECT_EQ(stream->dataWritten()->size(), 102u);
    EXPECT_EQ(
        archive->writeFileWrapper(archive->fileWrapperForKey("a"), archive.get(), "in/", memory()),
        30 + 4 + 5u);
    EXPECT_EQ(
        archive->writeFileWrapper(archive->fileWrapperForKey("a"), archive.get(), "in", memory()),
        30 + 4 + 5u);
}

TEST_F(ZipWrapperWriting, BrokenConditionsAreReported) {
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("x")}});
    const auto* const children = &archive->fileWrappers();
    const Wrapper child = archive->fileWrapperForKey("a");
    const auto input = InputStream::inputStreamWithData(Data::copyOf("x"));
    std::uint32_t count = 0;
    const struct {
        std::vector<std::string> conditions;
        std::function<bool()> call;
    } kRows[] = {
        {{"url != nil"},
         [&] {
             return archive->FLWriteToURL(std::nullopt, Atomically::No, UpdateFilenames::No,
                                          nullptr);
         }},
        {{"fileWrappers != nil", "outStream != nil", "parentFileWrapper != nil"},
         [&] {
             return archive->writeFileWrappers(nullptr, nullptr, std::nullopt, nullptr, count,
                                               nullptr);
         }},
        {{"outStream != nil"},
         [&] {
             return archive->writeFileWrappers(children, archive.get(), std::nullopt, nullptr,
                                               count, nullptr);
         }},
        {{"wrapper != nil", "outStream != nil", "parentFileWrapper != nil"},
         [&] {
             return archive->writeFileWrapper(nullptr, nullptr, std::nullopt, nullptr, count,
                                              nullptr);
         }},
        {{"parentFileWrapper != nil"},
         [&] {
             return archive->writeFileWrapper(child, nullptr, std::nullopt, memory(), count,
                                              nullptr);
         }},
        {{"inputStream != nil", "outputStream != nil"},
         [] {
             return ZipWrapper::writeDataFromStream(nullptr, nullptr);
         }},
        {{"outputStream != nil"},
         [&] {
             return ZipWrapper::writeDataFromStream(input, nullptr);
         }},
        {{"filePath != nil", "outputStream != nil"},
         [] {
             return ZipWrapper::writeDataFromFile(std::nullopt, nullptr);
         }},
    };
    for (const auto& row : kRows) {
        RecordingHandler handler;
        {
            const platform::AssertionHandlerScope scope(handler);
            EXPECT_FALSE(row.call());
        }
        std::vector<std::string> reported;
        for (const std::string& condition : handler.reported) {
            reported.push_back(condition.substr(0, condition.find(" @")));
        }
        EXPECT_EQ(reported, row.conditions);
        EXPECT_THROW((void)row.call(), platform::AssertionFailure);
    }
    EXPECT_EQ(count, 0u);
}

// Failures.

/// Takes a number of bytes, the rest of the write that comes to it, and nothing more. Its place is
/// where it is told.
class ShortStream final : public OutputStream {
public:
    explicit ShortStream(std::size_t room, std::int64_t place = 0) : room_(room), place_(place) {
        setStatus(platform::StreamStatus::Open);
    }

    void open() override {}
    void close() override {}
    std::int64_t write(std::span<const std::byte> bytes) override {
        const std::size_t count = std::min(bytes.size(), room_);
        room_ -= count;
        place_ += static_cast<std::int64_t>(count);
        return count == 0 ? -1 : static_cast<std::int64_t>(count);
    }
    std::optional<std::int64_t> currentFileOffset() const override { return place_; }

private:
    std::size_t room_;
    std::int64_t place_;
};

TEST_F(ZipWrapperWriting, AStreamThatFailsAfterAnyNumberOfBytesEndsTheWalk) {
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers(
        {{"a", file("12345")},
         {"d", folder({{"b", ZipFileWrapper::initWithPath(disk.write("spooled", "123"))}})}});
    const auto* const children = &archive->fileWrappers();
    constexpr std::size_t kWhole = 30 + 1 + 5 + 30 + 2 + 30 + 3 + 3;
    // The count grows by whole headers, names and contents.
    const std::vector<std::uint32_t> kSteps = {0, 30, 31, 36, 66, 68, 98, 101, kWhole};
    for (std::size_t room = 0; room <= kWhole; room++) {
        std::uint32_t count = 0;
        const bool isWritten =
            archive->writeFileWrappers(children, archive.get(), std::nullopt,
                                       std::make_shared<ShortStream>(room), count, nullptr);
        EXPECT_EQ(isWritten, room == kWhole);
        EXPECT_EQ(count, *(std::upper_bound(kSteps.begin(), kSteps.end(), room) - 1)) << room;
    }
}

TEST_F(ZipWrapperWriting, EntriesThatAnArchiveCannotHoldAreRefused) {
    const auto archive =
        ZipWrapper::initDirectoryWithFileWrappers({{"a", file("12345")},
                                                   {std::string(65'535, 'n'), file("x")},
                                                   {std::string(65'536, 'n'), file("x")}});
    const auto* const parent = archive.get();
    const struct {
        const char* name;
        Wrapper child;
        std::int64_t place;
        bool isWritten;
    } kRows[] = {
        {"the last place for an entry", archive->fileWrapperForKey("a"), 0xFFFFFFFF - 36, true},
        {"an end behind 4 GiB - 1", archive->fileWrapperForKey("a"), 0xFFFFFFFF - 35, false},
        {"a start behind 4 GiB - 2", archive->fileWrapperForKey("a"), 0xFFFFFFFF, false},
        {"a long name", archive->fileWrapperForKey(std::string(65'535, 'n')), 0, true},
        {"a name too long", archive->fileWrapperForKey(std::string(65'536, 'n')), 0, false},
        {"a stranger", file("x"), 0, false},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        platform::clearFailure();
        std::uint32_t count = 0;
        const auto stream = std::make_shared<ShortStream>(100'000, row.place);
        EXPECT_EQ(
            archive->writeFileWrapper(row.child, parent, std::nullopt, stream, count, nullptr),
            row.isWritten);
        EXPECT_EQ(platform::lastFailure() == nullptr, row.isWritten);
        EXPECT_EQ(count == 0, !row.isWritten);
    }
}

TEST_F(ZipWrapperWriting, ContentsThatCannotBeHadEndIt) {
    const struct {
        const char* name;
        Wrapper child;
    } kRows[] = {
        {"a spooled file that is gone", ZipFileWrapper::initWithPath(disk.path("none"))},
        {"a folder as contents", ZipFileWrapper::initWithPath(disk.path())},
        {"a link", FileWrapper::initSymbolicLinkWithDestination("a")},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto archive =
            ZipWrapper::initDirectoryWithFileWrappers({{"a", file("1")}, {"b", row.child}});
        EXPECT_FALSE(archive->writeToFile(disk.path("out"), Atomically::No, UpdateFilenames::No));
        EXPECT_NE(platform::lastFailure(), nullptr);
        fs::remove(disk.path("out"));
    }
}

TEST_F(ZipWrapperWriting, FoldersInOneAnotherAreBounded) {
    Wrapper inner = folder({});
    for (int i = 0; i < 998; i++) {
        inner = folder({{"d", inner}});
    }
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"d", inner}});
    EXPECT_EQ(parsed(bytesOf(archive)).records.size(), 999u);
    const auto deeper = ZipWrapper::initDirectoryWithFileWrappers({{"d", folder({{"d", inner}})}});
    EXPECT_FALSE(deeper->writeToFile(disk.path("out"), Atomically::No, UpdateFilenames::No));
    EXPECT_NE(std::string(platform::lastFailure()).find("nested too deep"), std::string::npos);
}

TEST_F(ZipWrapperWriting, AFileThatCannotBeOpenedIsReported) {
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("1")}});
    RecordingHandler handler;
    const platform::AssertionHandlerScope scope(handler);
    EXPECT_FALSE(archive->writeToFile(disk.path("none/out"), Atomically::No, UpdateFilenames::No));
    ASSERT_EQ(handler.reported.size(), 1u);
    EXPECT_TRUE(handler.reported[0].starts_with("Can't open out stream"));
    EXPECT_FALSE(archive->writeToFile("", Atomically::No, UpdateFilenames::No));
    EXPECT_EQ(handler.reported.size(), 1u) << "a URL without a path says nothing";
}

TEST_F(ZipWrapperWriting, AFileThatMayNotGrowEndsTheWrite) {
    struct rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    for (const bool hasLargeEntry : {false, true}) {
        const auto archive = ZipWrapper::initDirectoryWithFileWrappers(
            {{"a", file("1")}, {"b", file(std::string(hasLargeEntry ? 200'000 : 500, 'x'))}});
        struct rlimit limited = before;
        limited.rlim_cur = 100;
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limited), 0);
        const bool isWritten =
            archive->writeToFile(disk.path("out"), Atomically::No, UpdateFilenames::No);
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
        EXPECT_FALSE(isWritten);
        EXPECT_EQ(disk.read("out").substr(0, 4), "PK\3\4") << "a part of it is there";
    }
    std::signal(SIGXFSZ, handler);
}

TEST_F(ZipWrapperWriting, ContentsThatDoNotOpenAreLoggedAndHaveNoChecksum) {
    /// Takes every file for one that can be read.
    class Credulous final : public FileManager {
    public:
        bool isReadableFileAtPath(const std::string&) const override { return true; }
    };
    static int lines = 0;
    lines = 0;
    platform::setLogSink([](std::string_view) { ++lines; });
    const Credulous manager;
    const platform::FileManagerScope scope(manager);
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers(
        {{"a", ZipFileWrapper::initWithPath(disk.path("none"))}});
    const Archive written = parsed(bytesOf(archive));
    platform::setLogSink(nullptr);
    EXPECT_EQ(lines, 1);
    EXPECT_EQ(written.entries[0].local.DataDescriptor.CRC32, 0u);
    EXPECT_TRUE(written.records.empty());
}

TEST_F(ZipWrapperWriting, AnEmptyFileCannotBeDeflated) {
    RecordingHandler handler;
    const platform::AssertionHandlerScope scope(handler);
    const Archive archive = parsed(bytesOf({{"a", file("")}}, std::make_shared<LevelDelegate>(1)));
    ASSERT_EQ(handler.reported.size(), 1u);
    EXPECT_TRUE(handler.reported[0].starts_with("deflate fails with code "));
    EXPECT_EQ(archive.entries.size(), 1u);
}

TEST_F(ZipWrapperWriting, AFullDiskIsNoticed) {
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("1")}});
    EXPECT_FALSE(archive->writeToFile("/dev/full", Atomically::No, UpdateFilenames::No));
}

/// A disk on which some operations fail.
class FailingManager final : public FileManager {
public:
    bool removeItemAtPath(const std::string& path) const override {
        removed.push_back(path);
        return !failsRemoving && FileManager::removeItemAtPath(path);
    }
    bool copyItemAtPath(const std::string& path, const std::string& toPath) const override {
        return !failsCopying && FileManager::copyItemAtPath(path, toPath);
    }

    bool failsRemoving = false;
    bool failsCopying = false;
    mutable std::vector<std::string> removed;
};

TEST_F(ZipWrapperWriting, WhatCannotBeRemovedStaysAndSoDoesTheNewArchive) {
    disk.write("out", "old");
    FailingManager manager;
    manager.failsRemoving = true;
    const platform::FileManagerScope scope(manager);
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("bytes")}});
    EXPECT_FALSE(archive->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
    EXPECT_EQ(disk.read("out"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(temporary.path()), {}), 1);
}

TEST_F(ZipWrapperWriting, ACopyThatFailsTakesBothFilesWithIt) {
    disk.write("out", "old");
    FailingManager manager;
    manager.failsCopying = true;
    const platform::FileManagerScope scope(manager);
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({{"a", file("bytes")}});
    EXPECT_FALSE(archive->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
    EXPECT_FALSE(fs::exists(disk.path("out")));
    EXPECT_TRUE(fs::is_empty(temporary.path()));
}

TEST_F(ZipWrapperWriting, AWalkThatFailsLeavesTheOldArchive) {
    disk.write("out", "old");
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers(
        {{"a", file("1")}, {"b", FileWrapper::initSymbolicLinkWithDestination("a")}});
    EXPECT_FALSE(archive->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
    EXPECT_EQ(disk.read("out"), "old");
    EXPECT_EQ(std::distance(fs::directory_iterator(temporary.path()), {}), 1)
        << "what was written stays behind";
    archive->removeFileWrapper(archive->fileWrapperForKey("b"));
    EXPECT_EQ(parsed(bytesOf(archive)).records.size(), 1u) << "the next write starts afresh";
}

/// Gives some bytes and then an error.
class BrokenInput final : public InputStream {
public:
    void open() override { setStatus(platform::StreamStatus::Open); }
    void close() override {}
    std::int64_t read(std::span<std::byte> buffer) override {
        return isBegun_ ? -1 : (isBegun_ = true, static_cast<std::int64_t>(buffer.size()));
    }

private:
    bool isBegun_ = false;
};

TEST_F(ZipWrapperWriting, StreamsAreCopiedToTheirEnd) {
    const std::string bytes(10'000, 'x');
    const auto input = InputStream::inputStreamWithData(Data::copyOf(bytes));
    input->open();
    const auto output = memory();
    EXPECT_TRUE(ZipWrapper::writeDataFromStream(input, output));
    EXPECT_EQ(output->dataWritten(), Data::copyOf(bytes));
    EXPECT_FALSE(ZipWrapper::writeDataFromStream(std::make_shared<BrokenInput>(), memory()));
    const auto again = InputStream::inputStreamWithData(Data::copyOf(bytes));
    again->open();
    EXPECT_FALSE(ZipWrapper::writeDataFromStream(again, std::make_shared<ShortStream>(9'999)));
    EXPECT_TRUE(ZipWrapper::writeDataFromFile(disk.write("in", bytes), memory()));
    EXPECT_FALSE(ZipWrapper::writeDataFromFile(disk.path("none"), memory()));
}

// As folders.

TEST_F(ZipWrapperWriting, AFolderLetsItsChildrenWriteThemselves) {
    const auto directory = ZipDirectoryWrapper::init();
    const auto add = [&](const char* name, const Wrapper& child) {
        child->setPreferredFilename(name);
        directory->addFileWrapper(child);
    };
    add("archive", ZipWrapper::initDirectoryWithFileWrappers({{"a", file("1")}}));
    add("spooled", ZipFileWrapper::initWithPath(disk.write("spool", "22")));
    add("plain", file("333"));
    EXPECT_TRUE(directory->writeToFile(disk.path("d"), Atomically::No, UpdateFilenames::No));
    EXPECT_EQ(parsed(disk.read("d/archive")).entries[0].data, "1");
    EXPECT_EQ(disk.read("d/spooled"), "22");
    EXPECT_EQ(disk.read("d/plain"), "333");
    EXPECT_FALSE(directory->writeToFile(disk.path("d"), Atomically::No, UpdateFilenames::No))
        << "it is there already";
    add("..", file("out"));
    EXPECT_FALSE(directory->writeToFile(disk.path("e"), Atomically::No, UpdateFilenames::No));
    EXPECT_TRUE(ZipDirectoryWrapper::init()->writeToFile(disk.path("f"), Atomically::No,
                                                         UpdateFilenames::No));
}

TEST_F(ZipWrapperWriting, AFolderThatBecameSomethingElseIsWrittenAsThat) {
    const auto directory = ZipDirectoryWrapper::init();
    ASSERT_TRUE(directory->updateFromPath(disk.write("a", "bytes")));
    EXPECT_TRUE(directory->writeToFile(disk.path("b"), Atomically::No, UpdateFilenames::No));
    EXPECT_EQ(disk.read("b"), "bytes");
    fs::create_symlink("a", disk.path("link"));
    ASSERT_TRUE(directory->updateFromPath(disk.path("link")));
    EXPECT_FALSE(directory->writeToFile(disk.path("c"), Atomically::No, UpdateFilenames::No));
}

// Round trips.

/// A tree of random shape, without empty files: no directory lists those.
std::vector<FileWrapperEntry> randomTree(std::mt19937& random, int depth) {
    std::vector<FileWrapperEntry> children;
    const std::size_t count = random() % 6;
    for (std::size_t i = 0; i < count; i++) {
        const std::string name = "n\xC3\xA4me " + std::to_string(i);
        if (depth < 4 && random() % 3 == 0) {
            children.push_back({name, folder(randomTree(random, depth + 1))});
            continue;
        }
        std::string contents(1 + random() % 5000, 'x');
        if (random() % 2 == 0) {
            std::generate(contents.begin(), contents.end(),
                          [&] { return static_cast<char>(random()); });
        }
        children.push_back({name, file(contents)});
    }
    return children;
}

std::map<std::string, std::string> listed(const FileWrapper& tree, const std::string& path = "") {
    std::map<std::string, std::string> files;
    for (const auto& [key, child] : tree.fileWrappers()) {
        if (child->isDirectory()) {
            files[path + key + "/"];
            files.merge(listed(*child, path + key + "/"));
        } else {
            files[path + key] = child->regularFileContents()->view();
        }
    }
    return files;
}

TEST_F(ZipWrapperWriting, WhatWasWrittenIsReadEqual) {
    std::mt19937 random(1);
    for (std::uint32_t round = 0; round < 60; round++) {
        const auto archive = ZipWrapper::initDirectoryWithFileWrappers(randomTree(random, 0));
        archive->setDelegate(std::make_shared<LevelDelegate>(round % 10));
        ASSERT_TRUE(archive->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
        const auto read = ZipWrapper::initWithPath(disk.path("out"));
        ASSERT_EQ(listed(*read), listed(*archive));
        read->setDelegate(std::make_shared<LevelDelegate>(1));
        ASSERT_TRUE(read->writeToFile(disk.path("again"), Atomically::No, UpdateFilenames::No));
        ASSERT_EQ(listed(*ZipWrapper::initWithPath(disk.path("again"))), listed(*archive));
    }
}

TEST_F(ZipWrapperWriting, PythonReadsWhatWasWritten) {
    std::vector<FileWrapperEntry> children;
    for (int i = 0; i < 10'000; i++) {
        children.push_back({"f" + std::to_string(i), file("contents " + std::to_string(i))});
    }
    children.push_back({"d", folder({{"n\xC3\xA4me", file(std::string(100'000, 'y'))}})});
    children.push_back({"e", folder({})});
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers(std::move(children));
    archive->setDelegate(std::make_shared<LevelDelegate>(6));
    ASSERT_TRUE(archive->writeToFile(disk.path("out"), Atomically::No, UpdateFilenames::No));
    // Names beyond ASCII are not flagged as UTF-8, so Python takes them for another code page.
    const std::string script =
        "import sys,zipfile\n"
        "z=zipfile.ZipFile(sys.argv[1])\n"
        "assert z.testzip() is None\n"
        "assert len(z.namelist())==10003\n"
        "assert z.read('f9999')==b'contents 9999'\n"
        "assert z.read('d/näme'.encode().decode('cp437'))==b'y'*100000\n"
        "assert z.getinfo('e/').is_dir()\n";
    const std::string command =
        "python3 " + disk.write("check.py", script) + " " + disk.path("out");
    EXPECT_EQ(std::system(command.c_str()), 0);  // NOLINT(concurrency-mt-unsafe)
}

}  // namespace
}  // namespace parlavox
