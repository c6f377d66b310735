#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/AssertionHandler.h"
#include "Platform/Foundation/Exception.h"
#include "Sources/CocoaExtensions/Zip/ArchiveRangeError.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Sources/CocoaExtensions/Zip/RecordingHandler.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipWrapperTestPeer.h"
#include "Tools/samples/ZipBuilder.h"

namespace parlavox {
namespace {

using platform::Data;
using platform::kNotFound;
using platform::Range;
using samples::Packing;
using samples::ZipBuilder;
using samples::ZipEntry;
using Peer = ZipWrapperTestPeer;

/// Scans the local headers of `archive` and returns the names found, whatever ends the scan.
std::string scannedNames(const Data& archive, std::uint32_t end) {
    const auto wrapper = Peer::unscanned(archive);
    try {
        Peer::scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(*wrapper, 0, end);
    } catch (const ArchiveRangeError&) {
    }
    std::string names;
    for (const auto& entry : wrapper->fileWrappers()) {
        names += entry.key + " ";
    }
    return names;
}

TEST(ZipWrapperScan, FindsEntriesByTheirLocalHeaders) {
    ZipBuilder zip;
    zip.add("one", "x").isListed = false;
    zip.add("two/three", "a longer text that shrinks shrinks shrinks").isListed = false;
    const Data archive = zip.finish();
    const auto end = static_cast<std::uint32_t>(archive.size() - kDirectorySize);
    EXPECT_EQ(scannedNames(archive, end), "one two ");
}

TEST(ZipWrapperScan, TakesOnlyVersionTenAndPlainNames) {
    struct Row {
        const char* name;
        std::string_view entryName;
        void (*spoil)(ZipEntry&);
    };
    const Row rows[] = {
        {"version 20", "spoilt",
         [](ZipEntry& e) {
             e.local.VersionToExtract = 20;
         }},
        {"version 9", "spoilt",
         [](ZipEntry& e) {
             e.local.VersionToExtract = 9;
         }},
        {"name beyond ASCII", "caf\xC3\xA9",
         [](ZipEntry&) {
         }},
        {"name that is not UTF-8", "caf\xE9",
         [](ZipEntry&) {
         }},
        {"name with a NUL", std::string_view("a\0b", 3),
         [](ZipEntry&) {
         }},
        {"empty file", "spoilt",
         [](ZipEntry& e) {
             e.local.DataDescriptor.UncompressedSize = 0;
         }},
        {"unknown method", "spoilt",
         [](ZipEntry& e) {
             e.local.CompressionMethod = 12;
         }},
        {"signature", "spoilt",
         [](ZipEntry& e) {
             e.local.Signature = 1;
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ZipBuilder zip;
        row.spoil(zip.add(row.entryName, "contents of the spoilt entry", Packing::Stored));
        zip.add("good", std::string(600, 'g'), Packing::Stored);
        const Data archive = zip.finish();
        EXPECT_EQ(scannedNames(archive, static_cast<std::uint32_t>(archive.size())), "good ");
    }
}

TEST(ZipWrapperScan, ExtraFieldsAreSteppedOver) {
    ZipBuilder zip;
    ZipEntry& entry = zip.add("aEXTRA", "contents", Packing::Stored);
    entry.local.FilenameLength = 1;
    entry.local.ExtraFieldLength = 5;
    const Data archive = zip.finish();
    const auto wrapper = Peer::unscanned(archive);
    EXPECT_THROW(Peer::scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(
                     *wrapper, 1, static_cast<std::uint32_t>(archive.size())),
                 ArchiveRangeError);
    EXPECT_EQ(wrapper->fileWrapperForKey("a")->regularFileContents()->view(), "contents");
}

TEST(ZipWrapperScan, FolderWhoseExtraFieldReachesBeyondTheArchiveIsAdded) {
    ZipBuilder zip;
    zip.add("folder/", "").local.ExtraFieldLength = 0xFFFF;
    const Data archive = zip.finish();
    const auto wrapper = Peer::unscanned(archive);
    Peer::scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(
        *wrapper, 1, static_cast<std::uint32_t>(archive.size()));
    EXPECT_NE(wrapper->fileWrapperForKey("folder"), nullptr) << "no byte was taken from there";
}

TEST(ZipWrapperScan, FileWhoseExtraFieldReachesBeyondTheArchiveEndsTheScan) {
    ZipBuilder zip;
    zip.add("file", "x", Packing::Stored).local.ExtraFieldLength = 0xFFFF;
    const auto wrapper = Peer::unscanned(zip.finish());
    EXPECT_THROW(Peer::scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(*wrapper, 1, 0),
                 ArchiveRangeError);
}

TEST(ZipWrapperScan, StopsBeyondTheEndPosition) {
    ZipBuilder zip;
    zip.add("one", "x", Packing::Stored);
    zip.add("two", "y", Packing::Stored);
    // The first entry takes 30 + 3 + 1 bytes; a scan to 33 never looks at the second.
    const auto wrapper = Peer::unscanned(zip.finish());
    Peer::scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(*wrapper, 2, 33);
    EXPECT_EQ(wrapper->fileWrappers().size(), 1u);
    Peer::scanZipFileInConsecutiveOrderWithDeclaredEntriesCount(*wrapper, 2, 34);
    EXPECT_EQ(wrapper->fileWrappers().size(), 2u) << "the end position itself counts";
}

TEST(ZipWrapperScan, CentralDirectoryThatCannotBeUsedLeadsToTheScan) {
    struct Row {
        const char* name;
        void (*spoil)(ZipEntry&);
    };
    const Row rows[] = {
        {"central signature",
         [](ZipEntry& e) {
             e.central.Signature = 0;
         }},
        {"name longer than the directory",
         [](ZipEntry& e) {
             e.central.FilenameLength = 0x4000;
         }},
        {"unknown method",
         [](ZipEntry& e) {
             e.central.CompressionMethod = 12;
         }},
        {"damaged data",
         [](ZipEntry& e) {
             e.central.CompressionMethod = 8;
             e.central.DataDescriptor.CompressedSize = 2;
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ZipBuilder zip;
        row.spoil(zip.add("a", "xyz", Packing::Stored));
        const auto wrapper = Peer::unscanned(zip.finish());
        // After the last entry the scan runs into the directory, and its search out of the archive.
        EXPECT_THROW(Peer::scanLocalHeader(*wrapper), ArchiveRangeError);
        ASSERT_NE(wrapper->fileWrapperForKey("a"), nullptr);
        EXPECT_EQ(wrapper->fileWrapperForKey("a")->regularFileContents()->view(), "xyz");
    }
}

TEST(ZipWrapperScan, MoreRecordsThanTheDirectoryHoldsLeadToTheScan) {
    ZipBuilder zip;
    zip.add("a", "x", Packing::Stored);
    const auto wrapper = Peer::unscanned(
        zip.finish([](SDirectory& end) { end.EntriesOnDisk = end.TotalEntries = 2; }));
    EXPECT_THROW(Peer::scanLocalHeader(*wrapper), ArchiveRangeError);
    EXPECT_NE(wrapper->fileWrapperForKey("a"), nullptr);
}

TEST(ZipWrapperScan, EmptyFileInTheDirectoryEndsTheOpening) {
    ZipBuilder zip;
    zip.add("a", "x");
    zip.add("empty", "");
    EXPECT_THROW((void)ZipWrapper::initRegularFileWithContents(zip.finish()), ArchiveRangeError);
}

TEST(ZipWrapperScan, EntriesAddedBeforeTheScanStay) {
    ZipBuilder zip;
    zip.add("caf\xC3\xA9", "kept although the scan passes over it");
    zip.add("empty", "");
    const auto wrapper = Peer::unscanned(zip.finish());
    EXPECT_THROW(Peer::scanLocalHeader(*wrapper), ArchiveRangeError);
    EXPECT_NE(wrapper->fileWrapperForKey("caf\xC3\xA9"), nullptr);
}

TEST(ZipWrapperScan, DirectoryAtTheStartOfManyBytesEndsQuietly) {
    // With the end position far before the archive's end the scan stops before any search fails.
    ZipBuilder zip;
    zip.add("a", "x", Packing::Stored).central.Signature = 0;
    const auto wrapper =
        Peer::unscanned(zip.finish([](SDirectory& end) { end.DirectoryOffset = 0; }));
    EXPECT_TRUE(Peer::scanLocalHeader(*wrapper)) << "true after the scan, whatever came of it";
    EXPECT_NE(wrapper->fileWrapperForKey("a"), nullptr);
}

// The search.

TEST(ZipWrapperSearch, FindsTheFirstMatchBlockByBlock) {
    struct Row {
        const char* name;
        std::uint64_t at;
        Range range;
    };
    constexpr Row kRows[] = {
        {"at the start", 0, {0, 0}},
        {"inside the first block", 100, {0, 0}},
        {"at the first block's end", 396, {0, 0}},
        {"over the first block's end", 398, {0, 0}},
        {"in a later block", 1500, {0, 0}},
        {"from a later start", 1500, {700, 0}},
        {"in blocks of a given length", 95, {10, 20}},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        std::string bytes(4000, 'P');
        bytes.replace(row.at, 4, "PK\3\4");
        const auto wrapper = Peer::unscanned(Data::copyOf(bytes));
        EXPECT_EQ(Peer::rangeOfData(*wrapper, Data::copyOf("PK\3\4"), row.range),
                  (Range{row.at, 4}));
    }
}

TEST(ZipWrapperSearch, BlockBeyondTheArchiveRaises) {
    const auto wrapper = Peer::unscanned(Data::copyOf(std::string(1000, 'x')));
    const Data signature = Data::copyOf("PK\3\4");
    EXPECT_THROW((void)Peer::rangeOfData(*wrapper, signature, {0, 0}), ArchiveRangeError);
    EXPECT_THROW((void)Peer::rangeOfData(*wrapper, signature, {601, 0}), ArchiveRangeError)
        << "even the first block must lie inside";
    // A match in the last bytes is not found: its block would reach beyond the archive.
    std::string late(1000, 'x');
    late.replace(996, 4, "PK\3\4");
    EXPECT_THROW((void)Peer::rangeOfData(*Peer::unscanned(Data::copyOf(late)), signature, {0, 0}),
                 ArchiveRangeError);
}

TEST(ZipWrapperSearch, WithoutArchiveBytesTheRangesOwnStartIsTheAnswer) {
    const auto wrapper = Peer::unscanned(std::nullopt);
    EXPECT_EQ(Peer::rangeOfData(*wrapper, Data::copyOf("PK\3\4"), {17, 0}).location, 17u);
}

TEST(ZipWrapperSearch, SearchThatCannotMoveOnEnds) {
    const auto wrapper = Peer::unscanned(Data::copyOf(std::string(1000, 'x')));
    EXPECT_EQ(Peer::rangeOfData(*wrapper, Data::copyOf("PK\3\4"), {0, 3}).location, kNotFound);
    EXPECT_EQ(Peer::rangeOfData(*wrapper, Data::copyOf("PK\3\4"), {0, 4}).location, kNotFound);
}

TEST(ZipWrapperSearch, NeedsSomethingToFind) {
    try {
        (void)Peer::rangeOfData(*Peer::unscanned(Data()), std::nullopt, {0, 0});
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: stringToFind");
        EXPECT_EQ(failure.file(), kZipSourceFile);
        EXPECT_EQ(failure.line(), 639u);
    }
    RecordingHandler handler;
    const platform::AssertionHandlerScope scope(handler);
    EXPECT_EQ(Peer::rangeOfData(*Peer::unscanned(Data()), std::nullopt, {5, 0}),
              (Range{kNotFound, 0}));
    EXPECT_EQ(handler.reported, (std::vector<std::string>{"stringToFind @639"}));
}

// Names.

TEST(ZipWrapperNames, NeedBytes) {
    try {
        (void)Peer::createStringFromFilenameRecord(nullptr, 3);
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Invalid parameter not satisfying: bytes");
        EXPECT_EQ(failure.file(), kZipSourceFile);
        EXPECT_EQ(failure.line(), 676u);
    }
}

TEST(ZipWrapperNames, AreNoneWhenTheHandlerReturns) {
    struct Silent : platform::AssertionHandler {
        void handleFailure(const platform::AssertionFailure&) override {}
    } silent;
    const platform::AssertionHandlerScope scope(silent);
    const std::byte bytes[4] = {};
    EXPECT_EQ(Peer::createStringFromFilenameRecord(nullptr, 3), std::nullopt);
    EXPECT_EQ(Peer::createStringFromFilenameRecord(bytes, 0), std::nullopt);
    EXPECT_EQ(Peer::createStringFromFilenameRecord(bytes, -1), std::nullopt);
    EXPECT_EQ(Peer::createStringFromFilenameRecord(bytes, 4096), std::nullopt);
    EXPECT_EQ(Peer::createStringFromFilenameRecord(bytes, 4), "") << "up to the first NUL";
}

TEST(ZipWrapperNames, AllBrokenConditionsAreReportedInTheirOrder) {
    const std::byte bytes[4] = {};
    const struct {
        const char* name;
        const std::byte* bytes;
        std::int64_t count;
        std::vector<std::string> want;
    } kRows[] = {
        {"no bytes and no length", nullptr, 0, {"bytes @676", "count > 0 @677"}},
        {"no bytes and too many of them", nullptr, 4096, {"bytes @676", "count < 4096 @678"}},
        {"no length", bytes, 0, {"count > 0 @677"}},
        {"nothing broken", bytes, 4, {}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        RecordingHandler handler;
        const platform::AssertionHandlerScope scope(handler);
        EXPECT_EQ(Peer::createStringFromFilenameRecord(row.bytes, row.count).has_value(),
                  row.want.empty());
        EXPECT_EQ(handler.reported, row.want);
    }
}

}  // namespace
}  // namespace parlavox
