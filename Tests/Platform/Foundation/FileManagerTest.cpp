#include "Platform/Foundation/FileManager.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "Platform/Foundation/Failure.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

const FileManager& kManager = FileManager::defaultManager();

TEST(FileManager, AttributesAreThoseOfTheTargetOfALink) {
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a", "bytes");
    std::filesystem::create_symlink(path, folder.path("link"));
    // 2001-01-01 00:00:10.5 UTC.
    const timespec times[] = {{978'307'210, 500'000'000}, {978'307'210, 500'000'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    for (const char* name : {"a", "link"}) {
        SCOPED_TRACE(name);
        const auto attributes = kManager.attributesOfItemAtPath(folder.path(name));
        ASSERT_TRUE(attributes);
        EXPECT_EQ(attributes->type, FileType::Regular);
        EXPECT_EQ(attributes->size, 5u);
        EXPECT_EQ(attributes->modificationDate, Date{10.5});
    }
    EXPECT_EQ(kManager.attributesOfItemAtPath(folder.path())->type, FileType::Directory);
    EXPECT_EQ(kManager.attributesOfItemAtPath("/dev/null")->type, FileType::Other);
}

TEST(FileManager, ContentsThatEndInAnErrorAreNone) {
    // No process has anything at address 0.
    EXPECT_FALSE(kManager.contentsAtPath("/proc/self/mem"));
    EXPECT_STREQ(lastFailure(), "/proc/self/mem: Input/output error");
}

TEST(FileManager, NameTooLongForAnyDiskIsNotRemoved) {
    const test::TemporaryFolder folder;
    const std::string path = folder.path(std::string(300, 'n'));
    EXPECT_FALSE(kManager.removeItemAtPath(path));
    EXPECT_EQ(lastFailure(), path + ": File name too long");
}

TEST(FileManager, PathWithANulIsResolvedToItself) {
    const std::string path("/proc/self\0/exe", 15);
    EXPECT_EQ(kManager.stringByResolvingSymlinksInPath(path), path);
}

TEST(FileManager, WhatIsNotThereHasNoAttributesAndNoContents) {
    const test::TemporaryFolder folder;
    std::filesystem::create_symlink("nowhere", folder.path("dangling"));
    folder.write("a", "");
    const struct {
        const char* name;
        std::string path;
    } kRows[] = {
        {"no file", folder.path("none")},
        {"link to nowhere", folder.path("dangling")},
        {"empty path", ""},
        {"a path that holds a NUL", folder.path(std::string_view("a\0b", 3))},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_FALSE(kManager.attributesOfItemAtPath(row.path));
        EXPECT_FALSE(kManager.fileExistsAtPath(row.path));
        EXPECT_FALSE(kManager.isReadableFileAtPath(row.path));
        EXPECT_FALSE(kManager.contentsAtPath(row.path));
    }
}

TEST(FileManager, ContentsAreWhatIsThereWhateverTheSizeSaid) {
    const test::TemporaryFolder folder;
    const std::string large(1'000'000, 'x');
    EXPECT_EQ(kManager.contentsAtPath(folder.write("large", large))->view(), large);
    EXPECT_EQ(kManager.contentsAtPath(folder.write("empty", "")), Data());
    // The system says 0 for the size of this file.
    ASSERT_EQ(kManager.attributesOfItemAtPath("/proc/self/maps")->size, 0u);
    EXPECT_GT(kManager.contentsAtPath("/proc/self/maps")->size(), 4096u);
}

TEST(FileManager, OnlyRegularFilesHaveContents) {
    const test::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    for (const std::string& path : {folder.path("pipe"), folder.path(), std::string("/dev/zero")}) {
        SCOPED_TRACE(path);
        clearFailure();
        EXPECT_FALSE(kManager.contentsAtPath(path));
        ASSERT_NE(lastFailure(), nullptr);
        EXPECT_EQ(std::string(lastFailure()).find(path + ": "), 0u);
    }
}

TEST(FileManager, MakesMissingFoldersOnlyWhenAsked) {
    const test::TemporaryFolder folder;
    folder.write("file", "");
    using enum IntermediateDirectories;
    const struct {
        const char* name;
        std::string path;
        IntermediateDirectories with;
        bool want;
    } kRows[] = {
        {"one", folder.path("one"), No, true},
        {"one again", folder.path("one"), No, false},
        {"one again, if missing", folder.path("one"), Yes, true},
        {"two below a missing one", folder.path("x/y"), No, false},
        {"three at once", folder.path("x//y/z/"), Yes, true},
        {"below a file", folder.path("file/a"), Yes, false},
        {"in place of a file", folder.path("file"), Yes, false},
        {"root", "/", Yes, true},
        {"empty", "", Yes, false},
        {"a NUL", folder.path(std::string_view("n\0", 2)), Yes, false},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(kManager.createDirectoryAtPath(row.path, row.with), row.want);
    }
    EXPECT_TRUE(std::filesystem::is_directory(folder.path("x/y/z")));
    EXPECT_FALSE(kManager.fileExistsAtPath(folder.path("n")));
}

/// Masks no permission while it lives.
class NoMaskScope {
public:
    NoMaskScope() : before_(::umask(0)) {}
    ~NoMaskScope() { ::umask(before_); }

private:
    mode_t before_;
};

TEST(FileManager, NewFoldersHaveThePermissionsAskedFor) {
    const test::TemporaryFolder folder;
    const NoMaskScope scope;
    using enum IntermediateDirectories;
    EXPECT_TRUE(kManager.createDirectoryAtPath(folder.path("all"), No));
    EXPECT_TRUE(kManager.createDirectoryAtPath(folder.path("own"), No, kPermissionsForOwner));
    EXPECT_TRUE(kManager.createDirectoryAtPath(folder.path("all/x/y"), Yes, 0750));
    const struct {
        const char* name;
        mode_t want;
    } kRows[] = {{"all", 0777}, {"own", 0700}, {"all/x", 0750}, {"all/x/y", 0750}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        struct stat info = {};
        ASSERT_EQ(::stat(folder.path(row.name).c_str(), &info), 0);
        EXPECT_EQ(info.st_mode & 07777, row.want);
    }
}

TEST(FileManager, RemovingAFileIsQuietAndSparesFolders) {
    const test::TemporaryFolder folder;
    folder.write("n", "");
    const std::string target = folder.write("target", "");
    std::filesystem::create_directory(folder.path("empty"));
    std::filesystem::create_symlink(target, folder.path("link"));
    clearFailure();
    EXPECT_TRUE(kManager.removeFileAtPath(folder.path("link")));
    EXPECT_FALSE(kManager.removeFileAtPath(folder.path("link"))) << "it is gone";
    EXPECT_FALSE(kManager.removeFileAtPath(folder.path("empty")));
    EXPECT_FALSE(kManager.removeFileAtPath(folder.path(std::string_view("n\0", 2))));
    EXPECT_FALSE(kManager.removeFileAtPath(""));
    EXPECT_EQ(lastFailure(), nullptr);
    EXPECT_EQ(folder.count(), 3) << "the target, the folder, and what stands before the NUL";
}

TEST(FileManager, RemovingNeverFollowsLinks) {
    const test::TemporaryFolder kept;
    kept.write("treasure", "gold");
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.path("tree/inner"));
    std::filesystem::create_directory_symlink(kept.path(), folder.path("tree/inner/link"));
    std::filesystem::create_directory_symlink(kept.path(), folder.path("link"));
    EXPECT_TRUE(kManager.removeItemAtPath(folder.path("tree/")));
    EXPECT_TRUE(kManager.removeItemAtPath(folder.path("link/")));
    EXPECT_EQ(folder.count(), 0);
    EXPECT_EQ(kept.read("treasure"), "gold");
}

TEST(FileManager, RemovingNothingFails) {
    const test::TemporaryFolder folder;
    folder.write("n", "");
    EXPECT_FALSE(kManager.removeItemAtPath(folder.path("none")));
    EXPECT_FALSE(kManager.removeItemAtPath(""));
    EXPECT_FALSE(kManager.removeItemAtPath(folder.path(std::string_view("n\0", 2))));
    EXPECT_EQ(folder.count(), 1);
    EXPECT_TRUE(kManager.removeItemAtPath(folder.path("n")));
}

// Sets a variable of the environment and restores it at the end.
class EnvironmentScope {
public:
    EnvironmentScope(const char* name, const char* value) : name_(name) {
        if (const char* before = ::getenv(name)) {
            before_ = before;
        }
        set(value);
    }
    ~EnvironmentScope() { set(before_ ? before_->c_str() : nullptr); }

    void set(const char* value) const {
        if (value != nullptr) {
            ::setenv(name_, value, 1);
        } else {
            ::unsetenv(name_);
        }
    }

private:
    const char* name_;
    std::optional<std::string> before_;
};

TEST(FileManager, TemporaryFolderComesFromTheEnvironmentAtEachCall) {
    const EnvironmentScope environment("TMPDIR", "/var/tmp");
    EXPECT_EQ(kManager.temporaryDirectory(), "/var/tmp");
    for (const char* unusable : {"", "relative/folder", static_cast<const char*>(nullptr)}) {
        environment.set(unusable);
        EXPECT_EQ(kManager.temporaryDirectory(), "/tmp");
    }
}

TEST(FileManager, DerivedManagerFailsOnCue) {
    struct FullDisk : FileManager {
        bool createDirectoryAtPath(const std::string&, IntermediateDirectories,
                                   Permissions) const override {
            return false;
        }
    };
    const FullDisk disk;
    const FileManager& manager = disk;
    EXPECT_FALSE(manager.createDirectoryAtPath("/tmp", IntermediateDirectories::Yes));
    EXPECT_TRUE(manager.fileExistsAtPath("/"));
}

}  // namespace
}  // namespace platform
