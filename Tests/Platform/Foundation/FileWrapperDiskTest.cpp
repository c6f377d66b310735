// How file wrappers are read from and written to the disk.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using Wrapper = std::shared_ptr<FileWrapper>;

Wrapper file(std::string_view contents) {
    return FileWrapper::initRegularFileWithContents(Data::copyOf(contents));
}

Wrapper folder(std::vector<FileWrapperEntry> children) {
    return FileWrapper::initDirectoryWithFileWrappers(std::move(children));
}

// A tree in one line: names, contents in brackets, folders in braces, links after an arrow.
std::string describe(const Wrapper& wrapper) {
    if (wrapper->isRegularFile()) {
        return "[" + std::string(wrapper->regularFileContents()->view()) + "]";
    }
    if (wrapper->isSymbolicLink()) {
        return "->" + wrapper->symbolicLinkDestination();
    }
    std::string text = "{";
    for (const auto& [key, child] : wrapper->fileWrappers()) {
        text += " " + key + describe(child);
    }
    return text + " }";
}

// The same for what is on the disk.
std::string describe(const std::string& path) {
    const Wrapper wrapper = FileWrapper::initWithPath(path, nullptr);
    return wrapper ? describe(wrapper) : "nothing";
}

class FileWrapperDisk : public testing::Test {
protected:
    test::TemporaryFolder disk;
};

TEST_F(FileWrapperDisk, TreeIsReadWithHiddenFilesAndLinksAsTheyAre) {
    fs::create_directories(disk.path("doc/inner"));
    disk.write("doc/text", "bytes");
    disk.write("doc/.hidden", "h");
    disk.write("doc/inner/\xFF", "no UTF-8");
    fs::create_symlink("text", disk.path("doc/link"));
    fs::create_symlink("nowhere/at all", disk.path("doc/dangling"));
    fs::create_directory_symlink("..", disk.path("doc/inner/up"));
    const Wrapper wrapper = FileWrapper::initWithPath(disk.path("doc/"), nullptr);
    ASSERT_NE(wrapper, nullptr);
    EXPECT_EQ(describe(wrapper),
              "{ .hidden[h] dangling->nowhere/at all inner{ up->.. \xFF[no UTF-8] } link->text "
              "text[bytes] }");
    EXPECT_EQ(wrapper->filename(), "doc");
    EXPECT_EQ(wrapper->preferredFilename(), "doc");
    EXPECT_EQ(wrapper->fileWrapperForKey("text")->filename(), "text");
    EXPECT_EQ(wrapper->fileWrapperForKey("text")->preferredFilename(), "text");
}

TEST_F(FileWrapperDisk, LinkToAFolderIsALinkAlsoWithASeparatorBehind) {
    fs::create_directory_symlink("/", disk.path("link"));
    EXPECT_EQ(describe(disk.path("link")), "->/");
    EXPECT_EQ(describe(disk.path("link//")), "->/");
}

TEST_F(FileWrapperDisk, WhatCannotBeReadGivesAnError) {
    disk.write("file", "");
    fs::create_directories(disk.path("tree/inner"));
    ASSERT_EQ(::mkfifo(disk.path("tree/inner/pipe").c_str(), 0600), 0);
    const struct {
        const char* name;
        std::string path;
        std::int64_t want;
        std::string place;
    } kRows[] = {
        {"nothing there", disk.path("none"), kFileReadNoSuchFileError, disk.path("none")},
        {"empty path", "", kFileReadNoSuchFileError, ""},
        {"below a file", disk.path("file/a"), kFileReadUnknownError, disk.path("file/a")},
        {"name too long", disk.path(std::string(300, 'n')), kFileReadInvalidFileNameError,
         disk.path()},
        {"a NUL", disk.path(std::string_view("file\0", 5)), kFileReadUnknownError, disk.path()},
        {"a device", "/dev/zero", kFileReadUnknownError, "/dev/zero"},
        {"a pipe inside", disk.path("tree"), kFileReadUnknownError, disk.path("tree/inner/pipe")},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        std::optional<Error> error;
        clearFailure();
        EXPECT_EQ(FileWrapper::initWithPath(row.path, &error), nullptr);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->domain, kCocoaErrorDomain);
        EXPECT_EQ(error->code, row.want);
        EXPECT_EQ(error->description.find(row.place), 0u) << error->description;
        EXPECT_NE(lastFailure(), nullptr);
    }
}

TEST_F(FileWrapperDisk, FilesInFoldersAreReadWhenAskedFor) {
    fs::create_directories(disk.path("doc/inner"));
    disk.write("doc/inner/a", "early");
    disk.write("doc/b", "gone soon");
    disk.write("doc/c", "a link soon");
    disk.write("doc/d", "a folder soon");
    const Wrapper wrapper =
        FileWrapper::initWithPath(disk.path("doc"), platform::FileReading::WhenAsked, nullptr);
    ASSERT_NE(wrapper, nullptr);
    disk.write("doc/inner/a", "late");
    for (const char* name : {"doc/b", "doc/c", "doc/d"}) {
        fs::remove(disk.path(name));
    }
    fs::create_symlink("inner/a", disk.path("doc/c"));
    fs::create_directory(disk.path("doc/d"));
    const Wrapper file = wrapper->fileWrapperForKey("inner")->fileWrapperForKey("a");
    EXPECT_TRUE(file->isRegularFile());
    EXPECT_EQ(file->regularFileContents(), platform::Data::copyOf("late"));
    disk.write("doc/inner/a", "too late");
    EXPECT_EQ(file->regularFileContents(), platform::Data::copyOf("late"));
    for (const char* name : {"b", "c", "d"}) {
        EXPECT_TRUE(wrapper->fileWrapperForKey(name)->isRegularFile());
        EXPECT_EQ(wrapper->fileWrapperForKey(name)->regularFileContents(), std::nullopt);
    }
}

TEST_F(FileWrapperDisk, AFileItselfIsReadAtOnce) {
    const std::string path = disk.write("a", "early");
    const Wrapper wrapper =
        FileWrapper::initWithPath(path, platform::FileReading::WhenAsked, nullptr);
    fs::remove(path);
    EXPECT_EQ(wrapper->regularFileContents(), platform::Data::copyOf("early"));
}

TEST_F(FileWrapperDisk, NestingIsFollowedFor128Folders) {
    std::string path = disk.path("top");
    fs::create_directory(path);
    for (int depth = 1; depth < 128; ++depth) {
        path += "/d";
        fs::create_directory(path);
    }
    EXPECT_NE(FileWrapper::initWithPath(disk.path("top"), nullptr), nullptr);
    fs::create_directory(path + "/d");
    std::optional<Error> error;
    EXPECT_EQ(FileWrapper::initWithPath(disk.path("top"), &error), nullptr);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->code, kFileReadUnknownError);
    EXPECT_EQ(error->description, path + "/d: is nested too deep");
}

TEST_F(FileWrapperDisk, UpdatingRereadsWhateverIsThereNow) {
    fs::create_directory(disk.path("a"));
    disk.write("a/old", "1");
    const Wrapper wrapper = FileWrapper::initWithPath(disk.path("a"), nullptr);
    const Wrapper old = wrapper->fileWrapperForKey("old");
    wrapper->setPreferredFilename("wish");
    fs::rename(disk.path("a/old"), disk.path("a/new"));
    EXPECT_TRUE(wrapper->updateFromPath(disk.path("a")));
    EXPECT_EQ(describe(wrapper), "{ new[1] }");
    EXPECT_EQ(wrapper->preferredFilename(), "wish");
    old->setPreferredFilename("gone");
    EXPECT_EQ(describe(wrapper), "{ new[1] }") << "the former child is in no folder any more";
    EXPECT_FALSE(wrapper->updateFromPath(disk.path("none")));
    EXPECT_EQ(describe(wrapper), "{ new[1] }");
    EXPECT_TRUE(wrapper->updateFromPath(disk.write("b", "file now")));
    EXPECT_EQ(describe(wrapper), "[file now]");
    EXPECT_EQ(wrapper->filename(), "b");
}

class Writing : public FileWrapperDisk, public testing::WithParamInterface<Atomically> {};

INSTANTIATE_TEST_SUITE_P(FileWrapperDisk, Writing, testing::Values(Atomically::No, Atomically::Yes),
                         [](const auto& suite) {
                             return suite.param == Atomically::Yes ? "Atomically" : "InPlace";
                         });

TEST_P(Writing, ChildrenAreWrittenUnderTheirKeys) {
    const Wrapper child = file("1");
    child->setPreferredFilename("preferred");
    const Wrapper wrapper = folder({{"key", child},
                                    {"empty", folder({})},
                                    {"link", FileWrapper::initSymbolicLinkWithDestination("key")},
                                    {"inner", folder({{"leaf", file("")}})}});
    EXPECT_TRUE(wrapper->writeToFile(disk.path("out/"), GetParam(), UpdateFilenames::No));
    EXPECT_EQ(describe(disk.path("out")), "{ empty{ } inner{ leaf[] } key[1] link->key }");
    EXPECT_EQ(wrapper->filename(), std::nullopt);
    EXPECT_EQ(disk.count(), 1) << "nothing is left beside it";
}

TEST_P(Writing, FilenamesAreUpdatedWhenAsked) {
    const Wrapper child = file("1");
    const Wrapper wrapper = folder({{"key", child}});
    EXPECT_TRUE(wrapper->writeToFile(disk.path("out"), GetParam(), UpdateFilenames::Yes));
    EXPECT_EQ(wrapper->filename(), "out");
    EXPECT_EQ(wrapper->preferredFilename(), std::nullopt);
    EXPECT_EQ(child->filename(), "key");
}

TEST_P(Writing, FileReplacesAFile) {
    disk.write("out", "long before");
    EXPECT_TRUE(file("now")->writeToFile(disk.path("out"), GetParam(), UpdateFilenames::No));
    EXPECT_EQ(disk.read("out"), "now");
    EXPECT_EQ(disk.count(), 1);
}

TEST_P(Writing, FilesGetThePermissionsOfNewFiles) {
    const mode_t before = ::umask(022);
    const Wrapper wrapper = folder({{"a", file("1")}});
    EXPECT_TRUE(wrapper->writeToFile(disk.path("out"), GetParam(), UpdateFilenames::No));
    ::umask(before);
    using fs::perms;
    EXPECT_EQ(fs::status(disk.path("out")).permissions(), static_cast<perms>(0755));
    EXPECT_EQ(fs::status(disk.path("out/a")).permissions(), static_cast<perms>(0644));
}

TEST_P(Writing, KeysNeverLeadOutOfTheFolder) {
    for (const std::string& key :
         {std::string("../escaped"), std::string(".."), std::string("."), std::string("a/b"),
          disk.path("escaped"), std::string("a\0b", 3)}) {
        SCOPED_TRACE(key);
        const Wrapper wrapper = folder({{key, file("bytes")}});
        EXPECT_FALSE(wrapper->writeToFile(disk.path("out"), GetParam(), UpdateFilenames::No));
        EXPECT_FALSE(fs::exists(disk.path("escaped")));
        fs::remove_all(disk.path("out"));
    }
}

TEST_P(Writing, UnusablePathsFail) {
    for (const std::string& path : {std::string(), std::string("/"), disk.path("none/out"),
                                    disk.path(std::string_view("a\0b", 3)), disk.path(".."),
                                    disk.path(std::string(300, 'n'))}) {
        SCOPED_TRACE(path);
        clearFailure();
        EXPECT_FALSE(file("1")->writeToFile(path, GetParam(), UpdateFilenames::Yes));
        EXPECT_NE(lastFailure(), nullptr);
    }
    EXPECT_EQ(disk.count(), 0);
}

TEST_P(Writing, LinkDestinationThatHoldsANulIsRefused) {
    const Wrapper link = FileWrapper::initSymbolicLinkWithDestination(std::string("a\0b", 3));
    EXPECT_FALSE(link->writeToFile(disk.path("out"), GetParam(), UpdateFilenames::No));
    EXPECT_EQ(disk.count(), 0);
}

// A file whose bytes lie elsewhere, or cannot be had.
class SpooledFile : public FileWrapper {
public:
    SpooledFile(Creation creation, std::string path)
        : FileWrapper(creation), path_(std::move(path)) {}

    static Wrapper initWithContentsAtPath(std::string path) {
        auto wrapper = std::make_shared<SpooledFile>(Creation(), std::move(path));
        wrapper->initRegular();
        return wrapper;
    }
    std::optional<Data> regularFileContents() const override {
        return FileManager::defaultManager().contentsAtPath(path_);
    }
    std::optional<std::string> contentFilePath() const override { return path_; }

private:
    std::string path_;
};

TEST_P(Writing, DerivedFileIsWrittenFromWhereItsBytesAre) {
    const Wrapper spooled = SpooledFile::initWithContentsAtPath(disk.write("spool", "bytes"));
    EXPECT_TRUE(spooled->isRegularFile());
    EXPECT_TRUE(
        folder({{"a", spooled}})->writeToFile(disk.path("out"), GetParam(), UpdateFilenames::No));
    EXPECT_EQ(describe(disk.path("out")), "{ a[bytes] }");
}

TEST_P(Writing, FailedChildFailsTheWhole) {
    const Wrapper lost = SpooledFile::initWithContentsAtPath(disk.path("none"));
    const Wrapper wrapper = folder({{"a", file("1")}, {"b", folder({{"lost", lost}})}});
    EXPECT_FALSE(wrapper->writeToFile(disk.path("out"), GetParam(), UpdateFilenames::Yes));
    EXPECT_EQ(wrapper->filename(), std::nullopt);
    EXPECT_EQ(fs::exists(disk.path("out")), GetParam() == Atomically::No);
}

TEST_F(FileWrapperDisk, WritingInPlaceNeedsAFreePlaceForFoldersAndLinks) {
    fs::create_directory(disk.path("out"));
    disk.write("out/before", "1");
    const Wrapper link = FileWrapper::initSymbolicLinkWithDestination("/a");
    for (const Wrapper& wrapper : {folder({{"a", file("2")}}), link, file("3")}) {
        EXPECT_FALSE(wrapper->writeToFile(disk.path("out"), Atomically::No, UpdateFilenames::Yes));
        EXPECT_EQ(wrapper->filename(), std::nullopt);
    }
    EXPECT_EQ(describe(disk.path("out")), "{ before[1] }");
}

TEST_F(FileWrapperDisk, WritingAtomicallyReplacesWhateverWasThere) {
    const Wrapper link = FileWrapper::initSymbolicLinkWithDestination("/a");
    const std::vector<Wrapper> kinds = {file("f"), folder({{"a", file("1")}}), folder({}), link};
    for (const Wrapper& before : kinds) {
        for (const Wrapper& after : kinds) {
            SCOPED_TRACE(describe(before) + " by " + describe(after));
            fs::remove_all(disk.path("out"));
            ASSERT_TRUE(before->writeToFile(disk.path("out"), Atomically::No, UpdateFilenames::No));
            EXPECT_TRUE(after->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
            EXPECT_EQ(describe(disk.path("out")), describe(after));
            EXPECT_EQ(disk.count(), 1);
        }
    }
}

TEST_F(FileWrapperDisk, FailedAtomicWritingLeavesWhatWasThere) {
    disk.write("out", "before");
    const Wrapper wrapper = folder({{"a", file("1")}, {"b/c", file("2")}});
    EXPECT_FALSE(wrapper->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
    EXPECT_EQ(disk.read("out"), "before");
    EXPECT_EQ(disk.count(), 1);
}

TEST_F(FileWrapperDisk, TreeTooDeepForAnyPathFailsToBeWritten) {
    Wrapper tree = folder({});
    for (int depth = 0; depth < 3000; ++depth) {
        tree = folder({{"d", std::move(tree)}});
    }
    EXPECT_FALSE(tree->writeToFile(disk.path("out"), Atomically::Yes, UpdateFilenames::No));
    EXPECT_EQ(disk.count(), 0);
}

}  // namespace
}  // namespace platform
