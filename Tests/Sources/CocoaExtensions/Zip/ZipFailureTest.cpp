// What a person is told about archives that cannot be read.

#include <gtest/gtest.h>

#include <string>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Unicode.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tools/samples/ZipBuilder.h"

namespace parlavox {
namespace {

using platform::Data;
using samples::Packing;
using samples::ZipBuilder;
using samples::ZipEntry;

/// The failure noted by opening `archive`, whatever comes of it; "none" when there is none.
std::string failureOf(const Data& archive) {
    try {
        (void)ZipWrapper::initRegularFileWithContents(archive);
    } catch (const platform::Exception&) {
        // Its reason has been noted.
    }
    const char* const line = platform::lastFailure();
    return line != nullptr ? line : "none";
}

std::string failureOfPath(const std::string& path) {
    platform::noteFailure("of earlier work");
    (void)ZipWrapper::initWithPath(path);
    const char* const line = platform::lastFailure();
    return line != nullptr ? line : "none";
}

TEST(ZipFailure, NamesTheCentralRecordAndTheCause) {
    struct Row {
        const char* name;
        void (*spoil)(ZipEntry&);
        const char* want;
    };
    // The spoilt entry is the second of two, whose central directory begins at byte 64.
    const Row rows[] = {
        {"nothing", [](ZipEntry&) {}, "none"},
        {"signature", [](ZipEntry& e) { e.central.Signature = 0; },
         "scan of local headers (central record 2: no signature of a central record): bytes 64 to "
         "464 of an archive of 180 bytes"},
        {"long name", [](ZipEntry& e) { e.central.FilenameLength = 4000; },
         "scan of local headers (central record 2: a name that reaches beyond the end of the "
         "archive): bytes 64 to 464 of an archive of 180 bytes"},
        {"unknown method", [](ZipEntry& e) { e.central.CompressionMethod = 12; },
         "scan of local headers (central record 2: b: compression method 12): bytes 64 to 464 of "
         "an archive of 180 bytes"},
        {"empty", [](ZipEntry& e) { e.central.DataDescriptor.UncompressedSize = 0; },
         "scan of local headers (central record 2: b: an empty file): bytes 64 to 464 of an "
         "archive of 180 bytes"},
        {"header elsewhere", [](ZipEntry& e) { e.central.LocalHeaderOffset = 1000; },
         "central record 2: b: bytes 1032 to 1062 of an archive of 180 bytes"},
        {"no name", [](ZipEntry& e) { e.central.FilenameLength = 0; },
         "central record 2: Invalid parameter not satisfying: count > 0"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ZipBuilder zip;
        zip.add("a", "x", Packing::Stored);
        row.spoil(zip.add("b", "y", Packing::Stored));
        EXPECT_EQ(failureOf(zip.finish()), row.want);
    }
}

TEST(ZipFailure, NameThatIsNotUtf8SaysSo) {
    ZipBuilder zip;
    zip.add("a", "x");
    zip.add("b", "x");
    zip.add("caf\xE9", "x");
    EXPECT_EQ(failureOf(zip.finish()),
              "central record 3: an entry name that is not UTF-8: Invalid parameter not "
              "satisfying: path != nil");
}

TEST(ZipFailure, LongCauseLeavesRoomForTheScans) {
    ZipBuilder zip;
    zip.add(std::string(600, 'n'), "");
    const std::string line = failureOf(zip.finish());
    EXPECT_TRUE(line.starts_with("scan of local headers (central record 1: nnn")) << line;
    EXPECT_TRUE(line.ends_with(" bytes")) << line;
}

TEST(ZipFailure, LongCauseIsNotCutInsideACharacter) {
    for (const std::string prefix : {"", "n"}) {
        SCOPED_TRACE(prefix);
        std::string name = prefix;
        while (name.size() < 600) {
            name += "\xC3\xA9";
        }
        ZipBuilder zip;
        zip.add(name, "");
        const std::string line = failureOf(zip.finish());
        EXPECT_TRUE(platform::utf16FromUtf8(line)) << line;
        const std::size_t end = line.find("): bytes");
        ASSERT_NE(end, line.npos) << line;
        EXPECT_TRUE(line.substr(0, end).ends_with("\xC3\xA9")) << line;
    }
}

TEST(ZipFailure, ScanThatEndsQuietlyLeavesTheCauseThatLedToIt) {
    ZipBuilder zip;
    zip.add("a", "x", Packing::Stored);
    EXPECT_EQ(failureOf(zip.finish([](SDirectory& end) { end.DirectoryOffset = 0; })),
              "central record 1: no signature of a central record");
}

TEST(ZipFailure, EndRecordsAreToldApart) {
    ZipBuilder zip;
    zip.add("a", "x");
    EXPECT_EQ(failureOf(zip.finish([](SDirectory& end) { end.Signature = 0; })),
              "no zip archive: no end record in its last 22 bytes");
    EXPECT_EQ(failureOf(zip.finish([](SDirectory& end) { end.TotalEntries = 2; })),
              "end record whose counts differ: 1 on this disk, 2 in total");
    EXPECT_EQ(failureOf(Data::copyOf("short")), "no zip archive: only 5 bytes");
}

TEST(ZipFailure, IsTheOpeningsOwn) {
    const test::TemporaryFolder folder;
    ZipBuilder zip;
    zip.add("a", "x");
    const std::string missing = folder.path("missing");
    EXPECT_EQ(failureOfPath(missing), missing + ": No such file or directory");
    EXPECT_EQ(failureOfPath(folder.write("text", "short")), "no zip archive: only 5 bytes");
    EXPECT_EQ(failureOfPath(folder.write("zip", zip.finish().view())), "none");
}

TEST(ZipFailure, FolderInPlaceOfAnArchiveIsCalledOne) {
    const test::TemporaryFolder folder;
    if (platform::FileManager::defaultManager().attributesOfItemAtPath(folder.path())->size == 0) {
        GTEST_SKIP() << "this file system gives folders no size, so nothing is read of them";
    }
    EXPECT_EQ(failureOfPath(folder.path()), folder.path() + ": Is a directory");
}

}  // namespace
}  // namespace parlavox
