#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/AssertionHandler.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Sources/CocoaExtensions/Zip/ArchiveRangeError.h"
#include "Sources/CocoaExtensions/Zip/ZipAssertion.h"
#include "Sources/CocoaExtensions/Zip/ZipDirectoryWrapper.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Sources/CocoaExtensions/Zip/RecordingHandler.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipTestFolder.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipWrapperTestPeer.h"
#include "Tools/samples/ZipBuilder.h"

namespace parlavox {
namespace {

using namespace std::string_view_literals;
using platform::Data;
using platform::FileWrapper;
using samples::Packing;
using samples::ZipBuilder;
using samples::ZipEntry;

std::shared_ptr<ZipWrapper> open(const Data& archive) {
    return ZipWrapper::initRegularFileWithContents(archive);
}

/// The tree as words: "name=contents", "name/(...)", "name//(...)" for a folder with an entry of
/// its own.
std::string tree(const FileWrapper& folder) {
    std::string words;
    for (const auto& [key, child] : folder.fileWrappers()) {
        words += words.empty() ? "" : " ";
        if (child->isDirectory()) {
            const bool isListed = dynamic_cast<const ZipDirectoryWrapper*>(child.get()) != nullptr;
            words += key + (isListed ? "//(" : "/(") + tree(*child) + ")";
        } else {
            words += key + "=" + std::string(child->regularFileContents()->view());
        }
    }
    return words;
}

struct NamedEntry {
    std::string_view name;
    std::string_view contents;
};

std::string treeOf(const std::vector<NamedEntry>& entries) {
    ZipBuilder zip;
    for (const NamedEntry& entry : entries) {
        zip.add(entry.name, entry.contents);
    }
    return tree(*open(zip.finish()));
}

TEST(ZipWrapperReading, EntriesBecomeATree) {
    struct Row {
        const char* name;
        std::vector<NamedEntry> entries;
        const char* want;
    };
    const Row rows[] = {
        {"files in the order of the archive", {{"b", "two"}, {"a", "one"}}, "b=two a=one"},
        {"folders on the way are made", {{"a/b/c.txt", "x"}}, "a/(b/(c.txt=x))"},
        {"two files in one folder", {{"a/b", "x"}, {"a/c", "y"}}, "a/(b=x c=y)"},
        {"a folder's own entry", {{"docs/", ""}, {"docs/a", "x"}}, "docs//(a=x)"},
        {"a later folder entry replaces the folder and its children",
         {{"a/b/c.txt", "x"}, {"a/", ""}},
         "a//()"},
        {"a later entry of the same name wins",
         {{"a", "old"}, {"b", "x"}, {"a", "new"}},
         "b=x a=new"},
        {"a folder in the place of a file", {{"a", "x"}, {"a/", ""}}, "a//()"},
        {"a backslash at the end makes a folder", {{"docs\\", ""}}, "docs//()"},
        {"a backslash inside is a character", {{"a\\b.txt", "x"}}, "a\\b.txt=x"},
        {"a leading separator is a folder of its own", {{"/a", "x"}}, "//(a=x)"},
        {"repeated separators", {{"a//b", "x"}}, "a/(b=x)"},
        {"separators at the end of a folder", {{"a//", ""}}, "a//()"},
        {"a name without a component is passed over", {{"/", ""}, {"a", "x"}}, "a=x"},
        {"a backslash alone has none either", {{"\\", ""}, {"a", "x"}}, "a=x"},
        {"of two separators one is left, the root's folder", {{"//", ""}, {"a", "x"}}, "///() a=x"},
        {"of three, too", {{"///", ""}}, "///()"},
        {"a separator and a backslash", {{"/\\", ""}}, "///()"},
        {"the root's folder takes what begins with it", {{"//", ""}, {"/a", "x"}}, "///(a=x)"},
        {"dots are names", {{"../a", "x"}, {"./b", "y"}}, "../(a=x) ./(b=y)"},
        {"names beyond ASCII", {{"caf\xC3\xA9/\xE6\x97\xA5", "x"}}, "caf\xC3\xA9/(\xE6\x97\xA5=x)"},
        {"a name ends at its first NUL", {{"ab\0cd"sv, "x"}}, "ab=x"},
        {"an empty archive", {}, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(treeOf(row.entries), row.want);
    }
}

TEST(ZipWrapperReading, NamesAreCaseSensitive) {
    EXPECT_EQ(treeOf({{"A", "x"}, {"a", "y"}}), "A=x a=y");
}

TEST(ZipWrapperReading, WhatIsNoArchiveOpensAsAnEmptyFolder) {
    ZipBuilder zip;
    zip.add("a", "x");
    const std::string good(zip.finish().view());
    struct Row {
        const char* name;
        std::string bytes;
    };
    const Row rows[] = {
        {"no bytes", ""},
        {"21 bytes", good.substr(good.size() - 21)},
        {"text", "A text that is longer than an end record, and no archive."},
        {"a comment after the end record", good + "comment"},
        {"the end record cut by one byte", good.substr(0, good.size() - 1)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        platform::clearFailure();
        const auto wrapper = open(Data::copyOf(row.bytes));
        ASSERT_NE(wrapper, nullptr);
        EXPECT_TRUE(wrapper->isDirectory());
        EXPECT_TRUE(wrapper->fileWrappers().empty());
        EXPECT_NE(platform::lastFailure(), nullptr) << "and a person can learn why";
    }
}

TEST(ZipWrapperReading, CountsOfTheEndRecordMustAgree) {
    ZipBuilder zip;
    zip.add("a", "x");
    EXPECT_EQ(tree(*open(zip.finish([](SDirectory& end) { end.TotalEntries = 2; }))), "");
    EXPECT_EQ(tree(*open(zip.finish([](SDirectory& end) { end.EntriesOnDisk = 0; }))), "");
}

TEST(ZipWrapperReading, DirectorySizeIsNotLookedAt) {
    ZipBuilder zip;
    zip.add("a", "x");
    EXPECT_EQ(tree(*open(zip.finish([](SDirectory& end) { end.DirectorySize = 0; }))), "a=x");
    EXPECT_EQ(tree(*open(zip.finish([](SDirectory& end) { end.DirectorySize = 0xFFFFFFFF; }))),
              "a=x");
}

TEST(ZipWrapperReading, DirectoryBeyondTheArchiveRaises) {
    ZipBuilder zip;
    zip.add("a", "x");
    EXPECT_THROW(open(zip.finish([](SDirectory& end) { end.DirectoryOffset = 0x10000; })),
                 ArchiveRangeError);
    EXPECT_THROW(open(zip.finish([](SDirectory& end) { end.DirectoryOffset = 0xFFFFFFFF; })),
                 ArchiveRangeError);
}

TEST(ZipWrapperReading, DirectoryWithoutBytesLeavesAnEmptyFolder) {
    ZipBuilder zip;
    zip.add("a", "x");
    const auto atEnd = ZipWrapperTestPeer::unscanned(zip.finish([](SDirectory& end) {
        // The archive of one entry of one byte: 30 + 1 + 1 + 46 + 1 + 22 bytes.
        end.DirectoryOffset = 101;
    }));
    EXPECT_FALSE(ZipWrapperTestPeer::scanLocalHeader(*atEnd));
    EXPECT_EQ(tree(*atEnd), "");
}

TEST(ZipWrapperReading, CommentsAndExtraFieldsAreSteppedOver) {
    // The builder puts nothing after the name, so the extra field is part of the next bytes: an
    // entry that is not listed gives room for it.
    ZipBuilder zip;
    ZipEntry& entry = zip.add("a.txtEXTRA", "abc", Packing::Stored);
    entry.local.FilenameLength = 5;
    entry.local.ExtraFieldLength = 5;
    entry.central.FilenameLength = 5;
    entry.central.ExtraFieldLength = 2;
    entry.central.CommentLength = 3;
    zip.add("b", "def");
    EXPECT_EQ(tree(*open(zip.finish())), "a.txt=abc b=def");
}

TEST(ZipWrapperReading, DeclaredSizeCounts) {
    struct Row {
        const char* name;
        std::string_view contents;
        std::uint32_t declared;
        std::string want;
    };
    const std::string_view eight = "aaaaaaaa";
    const Row rows[] = {
        {"exact", eight, 8, std::string(eight)},
        {"larger: zeros at the end", eight, 11, std::string(eight) + std::string(3, '\0')},
        {"smaller: twice the declared size", eight, 5, std::string(eight) + std::string(2, '\0')},
        {"half: twice the declared size is all of it", eight, 4, std::string(eight)},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ZipBuilder zip;
        ZipEntry& entry = zip.add("a", row.contents);
        ASSERT_EQ(entry.central.CompressionMethod, 8);
        entry.central.DataDescriptor.UncompressedSize = row.declared;
        const auto wrapper = open(zip.finish());
        EXPECT_EQ(wrapper->fileWrapperForKey("a")->regularFileContents()->view(), row.want);
    }
}

TEST(ZipWrapperReading, ChecksumsAndLocalHeadersAreNotVerified) {
    ZipBuilder zip;
    ZipEntry& entry = zip.add("a", "contents contents contents");
    entry.central.DataDescriptor.CRC32 ^= 1;
    entry.local.Signature = 0;
    entry.local.CompressionMethod = 77;
    entry.local.VersionToExtract = 99;
    entry.central.VersionToExtract = 99;
    EXPECT_EQ(tree(*open(zip.finish())), "a=contents contents contents");
}

TEST(ZipWrapperReading, MethodsUpToTenAreTakenForDeflate) {
    for (std::uint16_t method = 1; method <= 10; ++method) {
        ZipBuilder zip;
        ZipEntry& entry = zip.add("a", "contents contents contents");
        entry.central.CompressionMethod = method;
        EXPECT_EQ(tree(*open(zip.finish())), "a=contents contents contents") << method;
    }
}

TEST(ZipWrapperReading, DamagedOffsetsAndSizesEndTheOpening) {
    struct Row {
        const char* name;
        void (*spoil)(ZipEntry&);
    };
    const Row rows[] = {
        {"local header beyond the archive",
         [](ZipEntry& e) {
             e.central.LocalHeaderOffset = 100000;
         }},
        {"local header in the last bytes",
         [](ZipEntry& e) {
             e.central.LocalHeaderOffset = 90;
         }},
        {"stored data beyond the archive",
         [](ZipEntry& e) {
             e.central.DataDescriptor.UncompressedSize = 1000;
         }},
        {"name that reaches beyond the archive",
         [](ZipEntry& e) {
             e.local.FilenameLength = 0xFFFF;
         }},
        {"deflated data beyond the archive",
         [](ZipEntry& e) {
             e.central.CompressionMethod = 8;
             e.central.DataDescriptor.CompressedSize = 1000;
         }},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ZipBuilder zip;
        row.spoil(zip.add("a", "x", Packing::Stored));
        EXPECT_THROW(open(zip.finish()), ArchiveRangeError);
    }
}

TEST(ZipWrapperReading, NamesThatCannotBeReadEndTheOpening) {
    struct Row {
        const char* name;
        std::string entryName;
        const char* condition;
        std::uint32_t line;
    };
    const Row rows[] = {
        {"no name", "", "count > 0", 677},
        {"a name of 4096 bytes", std::string(4096, 'a'), "count < 4096", 678},
        {"a name that is not UTF-8", "caf\xE9", "path != nil", 830},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ZipBuilder zip;
        zip.add(row.entryName, "x");
        try {
            open(zip.finish());
            FAIL() << "nothing was raised";
        } catch (const platform::AssertionFailure& failure) {
            EXPECT_EQ(failure.reason(),
                      std::string("Invalid parameter not satisfying: ") + row.condition);
            EXPECT_EQ(failure.file(), kZipSourceFile);
            EXPECT_EQ(failure.line(), row.line);
        }
    }
    EXPECT_EQ(treeOf({{std::string(4095, 'a'), "x"}}), std::string(4095, 'a') + "=x");
}

TEST(ZipWrapperReading, FileInTheWayOfAFolderEndsTheOpening) {
    ZipBuilder zip;
    zip.add("a", "x");
    zip.add("a/b", "y");
    try {
        open(zip.finish());
        FAIL() << "nothing was raised";
    } catch (const platform::AssertionFailure& failure) {
        EXPECT_EQ(failure.reason(), "Path component is not directory");
        EXPECT_EQ(failure.file(), kZipSourceFile);
        EXPECT_EQ(failure.line(), 901u);
    }
    RecordingHandler handler;
    const platform::AssertionHandlerScope scope(handler);
    const auto wrapper = ZipWrapperTestPeer::unscanned(Data());
    const auto file = [] {
        return FileWrapper::initRegularFileWithContents(Data());
    };
    EXPECT_TRUE(ZipWrapperTestPeer::insert(*wrapper, file(), "a"));
    EXPECT_FALSE(ZipWrapperTestPeer::insert(*wrapper, file(), "a/b"));
    EXPECT_EQ(wrapper->fileWrappers().size(), 1u);
    EXPECT_EQ(handler.reported.size(), 1u);
}

TEST(ZipWrapperReading, DeepPathsAreRead) {
    std::string path;
    for (int i = 0; i < 2000; ++i) {
        path += "a/";
    }
    path += "b";
    const auto wrapper = open([&] {
        ZipBuilder zip;
        zip.add(path, "x");
        return zip.finish();
    }());
    std::shared_ptr<FileWrapper> node = wrapper;
    for (int i = 0; i < 2000; ++i) {
        node = node->fileWrapperForKey("a");
        ASSERT_NE(node, nullptr) << i;
    }
    EXPECT_EQ(node->fileWrapperForKey("b")->regularFileContents()->view(), "x");
}

TEST(ZipWrapperReading, ManyMembersAreReadInTheirOrder) {
    ZipBuilder zip;
    for (int i = 0; i < 10000; ++i) {
        zip.add("member" + std::to_string(i), std::to_string(i));
    }
    const auto wrapper = open(zip.finish());
    int i = 0;
    for (const auto& [key, child] : wrapper->fileWrappers()) {
        ASSERT_EQ(key, "member" + std::to_string(i));
        ASSERT_EQ(child->regularFileContents()->view(), std::to_string(i++));
    }
    EXPECT_EQ(i, 10000);
}

TEST(ZipWrapperReading, EveryPrefixOfAGoodArchiveIsReadOrRefused) {
    ZipBuilder zip;
    zip.add("contents.plist", "header header header header");
    zip.add("folder/", "");
    zip.add("folder/text.plist", "stored", Packing::Stored);
    const Data archive = zip.finish();
    for (std::size_t size = 0; size < archive.size(); ++size) {
        // An end record stands at no prefix's end, so each is an empty folder.
        const auto wrapper = open(archive.subdataWithRange({0, size}));
        ASSERT_NE(wrapper, nullptr);
        EXPECT_TRUE(wrapper->fileWrappers().empty()) << size;
    }
}

/// Whether a record declares contents of more than 64 MiB, which take their time.
bool declaresMuch(std::string_view archive) {
    constexpr std::uint32_t kMuch = 64 * 1024 * 1024;
    for (std::size_t at = 0; at + kFileHeaderSize <= archive.size(); ++at) {
        SFileHeader central;
        FLReadSFileHeader(&central, archive.data() + at);
        SLocalFileHeader local;
        FLReadSLocalFileHeader(&local, archive.data() + at);
        if ((central.Signature == kFileHeaderSignature &&
             central.DataDescriptor.UncompressedSize > kMuch) ||
            (local.Signature == kLocalFileHeaderSignature &&
             local.DataDescriptor.UncompressedSize > kMuch)) {
            return true;
        }
    }
    return false;
}

TEST(ZipWrapperReading, AnyByteMayBeWrong) {
    const ZipTestFolder temporaries;
    ZipBuilder zip;
    zip.add("contents.plist", "header header header header");
    zip.add("folder/", "");
    zip.add("folder/text.plist", "stored", Packing::Stored);
    const Data archive = zip.finish();
    for (std::size_t at = 0; at < archive.size(); ++at) {
        for (const int flip : {0x01, 0x08, 0x80}) {
            std::string bytes(archive.view());
            bytes[at] = static_cast<char>(bytes[at] ^ flip);
            if (declaresMuch(bytes)) {
                continue;
            }
            try {
                EXPECT_NE(open(Data::copyOf(bytes)), nullptr);
            } catch (const platform::Exception&) {
                // A damaged place ends the opening.
            }
        }
    }
}

// Ways in.

TEST(ZipWrapperEntryPoints, PathContentsAndLinkOpenTheSameTree) {
    const test::TemporaryFolder folder;
    ZipBuilder zip;
    zip.add("a/b", "x");
    const Data archive = zip.finish();
    const std::string path = folder.write("a.zip", archive.view());
    EXPECT_EQ(tree(*ZipWrapper::initWithPath(path)), "a/(b=x)");
    EXPECT_EQ(tree(*ZipWrapper::initSymbolicLinkWithDestination(path)), "a/(b=x)");
    EXPECT_EQ(tree(*ZipWrapper::initRegularFileWithContents(archive)), "a/(b=x)");

    std::filesystem::create_symlink(path, folder.path("link"));
    EXPECT_EQ(tree(*ZipWrapper::initWithPath(folder.path("link"))), "a/(b=x)")
        << "the size is that of the link's target";
}

TEST(ZipWrapperEntryPoints, DirectCallsKnowNoSizeAndReadAsEmpty) {
    ZipBuilder zip;
    zip.add("a", "x");
    const Data archive = zip.finish();
    EXPECT_EQ(tree(*ZipWrapper::initWithData(archive, nullptr)), "");
    EXPECT_EQ(tree(*ZipWrapper::initWithInputStream(
                  platform::InputStream::inputStreamWithData(archive), nullptr)),
              "");
}

TEST(ZipWrapperEntryPoints, WhatCannotBeOpenedAnswersNone) {
    const test::TemporaryFolder folder;
    EXPECT_EQ(ZipWrapper::initWithPath(folder.path("missing")), nullptr);
    EXPECT_EQ(
        ZipWrapper::initWithInputStream(
            platform::InputStream::inputStreamWithFileAtPath(folder.path("missing")), nullptr),
        nullptr);
}

TEST(ZipWrapperEntryPoints, PipeIsAnEmptyFolderAndNotWaitedFor) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    EXPECT_EQ(tree(*ZipWrapper::initWithPath(folder.path("pipe"))), "");
}

TEST(ZipWrapperEntryPoints, FilesLargerThanFourGigabytesAnswerNone) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("huge", "");
    std::filesystem::resize_file(path, 0x100000000);  // sparse: no disk is used
    EXPECT_EQ(ZipWrapper::initWithPath(path), nullptr);
    EXPECT_STREQ(platform::lastFailure(), "archive of 4294967296 bytes, more than 4 GiB - 1");
}

TEST(ZipWrapperEntryPoints, BytesThatTheStreamDoesNotDeliverStayZero) {
    // Opened with the size of the file; what is read is less by then.
    class ShortStream final : public platform::InputStream {
    public:
        void open() override { setStatus(platform::StreamStatus::Open); }
        void close() override { setStatus(platform::StreamStatus::Closed); }
        std::int64_t read(std::span<std::byte> buffer) override {
            ++reads;
            size = buffer.size();
            return -1;
        }
        int reads = 0;
        std::size_t size = 0;
    };
    const auto stream = std::make_shared<ShortStream>();
    EXPECT_EQ(tree(*ZipWrapper::initWithInputStream(stream, nullptr)), "");
    EXPECT_EQ(stream->reads, 1) << "one request for all of it";
    EXPECT_EQ(stream->streamStatus(), platform::StreamStatus::Closed);
}

TEST(ZipWrapperEntryPoints, BrokenConditionsNameTheirLines) {
    struct Row {
        const char* condition;
        std::uint32_t line;
        std::shared_ptr<ZipWrapper> (*call)();
    };
    const Row rows[] = {
        {"data != nil", 101,
         [] {
             return ZipWrapper::initWithData(std::nullopt, nullptr);
         }},
        {"stream != nil", 118,
         [] {
             return ZipWrapper::initWithInputStream(nullptr, nullptr);
         }},
        {"data != nil", 139,
         [] {
             return ZipWrapper::initRegularFileWithContents(std::nullopt);
         }},
        {"path != nil", 158,
         [] {
             return ZipWrapper::initWithPath(std::nullopt);
         }},
        {"path != nil", 158,
         [] {
             return ZipWrapper::initSymbolicLinkWithDestination(std::nullopt);
         }},
    };
    struct Silent : platform::AssertionHandler {
        void handleFailure(const platform::AssertionFailure&) override {}
    } silent;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.line);
        try {
            row.call();
            FAIL() << "nothing was raised";
        } catch (const platform::AssertionFailure& failure) {
            EXPECT_EQ(failure.reason(),
                      std::string("Invalid parameter not satisfying: ") + row.condition);
            EXPECT_EQ(failure.file(), kZipSourceFile);
            EXPECT_EQ(failure.line(), row.line);
        }
        const platform::AssertionHandlerScope scope(silent);
        EXPECT_EQ(row.call(), nullptr) << "none when the handler returns";
    }
}

TEST(ZipWrapperReading, NamesThatAreEmptyUpToTheirFirstNulArePassedOver) {
    ZipBuilder zip;
    zip.add("a", "x");
    zip.add(std::string_view("\0lost", 5), "x");
    zip.add("b", "x");
    const auto wrapper = open(zip.finish());
    ASSERT_EQ(wrapper->fileWrappers().size(), 2u);
    EXPECT_NE(wrapper->fileWrapperForKey("b"), nullptr) << "reading has gone on";
}

// What an archive answers.

TEST(ZipWrapper, AnswersConstants) {
    ZipBuilder zip;
    zip.add("a", "x");
    const auto wrapper = open(zip.finish());
    EXPECT_EQ(wrapper->serializedRepresentation(), std::nullopt);
    EXPECT_FALSE(wrapper->updateFromPath("/tmp"));
    EXPECT_FALSE(wrapper->fileManagerShouldProceedAfterError(
        platform::FileManager::defaultManager(), platform::Error{}));
    EXPECT_EQ(wrapper->contentFilePath(), std::nullopt);
    EXPECT_EQ(wrapper->fileWrapperForKey("a")->contentFilePath(), std::nullopt);
}

TEST(ZipWrapper, HoldsItsDelegate) {
    struct Delegate final : ZipWrapperDelegate {};
    const auto delegate = std::make_shared<Delegate>();
    ZipBuilder zip;
    const auto wrapper = ZipWrapper::initRegularFileWithContents(zip.finish(), delegate);
    EXPECT_EQ(wrapper->delegate(), delegate);
    EXPECT_EQ(delegate->compressLevelForFileWrapper(wrapper, *wrapper), std::nullopt)
        << "an operation that a delegate leaves out is not answered";
    wrapper->setDelegate(nullptr);
    EXPECT_EQ(wrapper->delegate(), nullptr);
    EXPECT_EQ(open(zip.finish())->delegate(), nullptr);
}

/// Says that it keeps each child under another key.
class RenamingFolder final : public FileWrapper {
public:
    explicit RenamingFolder(Creation key) : FileWrapper(key) {}
    static std::shared_ptr<RenamingFolder> init() {
        auto folder = std::make_shared<RenamingFolder>(Creation());
        folder->initDirectory();
        return folder;
    }
    std::string addFileWrapper(std::shared_ptr<FileWrapper> child) override {
        FileWrapper::addFileWrapper(child);
        return "other key";
    }
};

TEST(ZipWrapper, DelegateHearsOfNamesThatChange) {
    struct Delegate final : ZipWrapperDelegate {
        std::vector<std::string> heard;
        void zipWrapperDidChangeFileNameFromToName(const ZipWrapper&, const std::string& from,
                                                   const std::string& toName) override {
            heard.push_back(from + " -> " + toName);
        }
    };
    const auto delegate = std::make_shared<Delegate>();
    const auto wrapper = ZipWrapperTestPeer::unscanned(Data());
    wrapper->setDelegate(delegate);
    EXPECT_TRUE(ZipWrapperTestPeer::insert(*wrapper, RenamingFolder::init(), "folder"));
    EXPECT_TRUE(ZipWrapperTestPeer::insert(
        *wrapper, FileWrapper::initRegularFileWithContents(Data()), "folder/a.txt"));
    EXPECT_TRUE(ZipWrapperTestPeer::insert(
        *wrapper, FileWrapper::initRegularFileWithContents(Data()), "b.txt"));
    EXPECT_EQ(delegate->heard, (std::vector<std::string>{"a.txt -> other key"}));
}

TEST(ZipWrapper, DelegateMayLeaveNamesThatChangeUnanswered) {
    struct Delegate final : ZipWrapperDelegate {};
    const auto wrapper = ZipWrapperTestPeer::unscanned(Data());
    wrapper->setDelegate(std::make_shared<Delegate>());
    const auto folder = RenamingFolder::init();
    EXPECT_TRUE(ZipWrapperTestPeer::insert(*wrapper, folder, "folder"));
    EXPECT_TRUE(ZipWrapperTestPeer::insert(
        *wrapper, FileWrapper::initRegularFileWithContents(Data()), "folder/a.txt"));
    EXPECT_EQ(folder->fileWrappers().size(), 1u);
}

}  // namespace
}  // namespace parlavox
