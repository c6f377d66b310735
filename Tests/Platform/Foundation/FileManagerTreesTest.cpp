#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

const FileManager& kManager = FileManager::defaultManager();

/// Answers as it is told and remembers what it was asked.
class Recorder final : public FileManagerDelegate {
public:
    explicit Recorder(bool proceeds) : proceeds_(proceeds) {}

    bool fileManagerShouldProceedAfterError(const FileManager&, const Error& error) override {
        asked.push_back(error.description);
        return proceeds_;
    }

    std::vector<std::string> asked;

private:
    bool proceeds_;
};

TEST(FileManagerTrees, ItemsAreCopiedAsTheyAre) {
    const test::TemporaryFolder folder;
    folder.write("a/file", "bytes");
    folder.write("a/b/.hidden", std::string(200'000, 'x'));
    fs::create_directory(folder.path("a/empty"));
    fs::create_symlink("nowhere", folder.path("a/link"));
    ASSERT_EQ(::chmod(folder.path("a/file").c_str(), 0751), 0);
    EXPECT_TRUE(kManager.copyItemAtPath(folder.path("a/"), folder.path("c/")));
    EXPECT_EQ(folder.read("c/file"), "bytes");
    EXPECT_EQ(folder.read("c/b/.hidden"), std::string(200'000, 'x'));
    EXPECT_TRUE(fs::is_directory(folder.path("c/empty")));
    EXPECT_EQ(fs::read_symlink(folder.path("c/link")), "nowhere");
    EXPECT_EQ(fs::status(folder.path("c/file")).permissions(), fs::perms(0751));
    EXPECT_TRUE(kManager.copyItemAtPath(folder.path("a/link"), folder.path("link")));
    EXPECT_EQ(fs::read_symlink(folder.path("link")), "nowhere");
}

TEST(FileManagerTrees, WhatCannotBeCopiedIsToldWithItsPlace) {
    const test::TemporaryFolder folder;
    folder.write("a", "new");
    folder.write("old", "old");
    folder.write("d/file", "x");
    ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
    const struct {
        std::string from;
        std::string to;
        std::string failure;
    } kRows[] = {
        {folder.path("none"), folder.path("b"),
         folder.path("none") + ": No such file or directory"},
        {folder.path("a"), folder.path("old"), folder.path("old") + ": File exists"},
        {folder.path("d"), folder.path("old"), folder.path("old") + ": File exists"},
        {folder.path("d"), folder.path("d/inner"), folder.path("d/inner") + ": Invalid argument"},
        {folder.path("pipe"), folder.path("b"), folder.path("pipe") + ": Invalid argument"},
        {folder.path("a"), folder.path("none/b"),
         folder.path("none/b") + ": No such file or directory"},
        {"", folder.path("b"), ": No such file or directory"},
        {folder.path("a"), std::string("b\0", 2), "b : Invalid argument"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.failure);
        clearFailure();
        EXPECT_FALSE(kManager.copyItemAtPath(row.from, row.to));
        EXPECT_STREQ(lastFailure(), row.failure.c_str());
    }
    EXPECT_EQ(folder.read("old"), "old");
}

TEST(FileManagerTrees, DelegateDecidesWhetherToGoOn) {
    for (const bool proceeds : {false, true}) {
        SCOPED_TRACE(proceeds);
        const test::TemporaryFolder folder;
        for (const char* name : {"d/1", "d/2", "d/4"}) {
            folder.write(name, name);
        }
        ASSERT_EQ(::mkfifo(folder.path("d/3").c_str(), 0600), 0);
        const auto recorder = std::make_shared<Recorder>(proceeds);
        kManager.setDelegate(recorder);
        EXPECT_EQ(kManager.delegate(), recorder);
        EXPECT_EQ(kManager.copyItemAtPath(folder.path("d"), folder.path("e")), proceeds);
        EXPECT_EQ(recorder->asked.size(), 1u);
        if (proceeds) {
            EXPECT_EQ(folder.read("e/1") + folder.read("e/2") + folder.read("e/4"), "d/1d/2d/4");
        }
        EXPECT_EQ(kManager.removeItemAtPath(folder.path("none")), proceeds);
        EXPECT_EQ(kManager.removeItemAtPath("/"), proceeds);
        EXPECT_EQ(recorder->asked.size(), 3u);
    }
    EXPECT_EQ(kManager.delegate(), nullptr) << "it is not kept alive";
}

TEST(FileManagerTrees, RemovingGoesOnBesideWhatStays) {
    const test::TemporaryFolder folder;
    // A system's own folder can't be changed by anybody.
    const auto recorder = std::make_shared<Recorder>(true);
    kManager.setDelegate(recorder);
    EXPECT_TRUE(kManager.removeItemAtPath("/proc/self/fdinfo"));
    EXPECT_GT(recorder->asked.size(), 1u) << "the folder, and each item in it";
    EXPECT_TRUE(fs::exists("/proc/self/fdinfo"));
}

TEST(FileManagerTrees, AThreadCanHaveAManagerOfItsOwn) {
    class Deaf final : public FileManager {
    public:
        bool fileExistsAtPath(const std::string&) const override { return false; }
    };
    const Deaf deaf;
    {
        const FileManagerScope scope(deaf);
        EXPECT_FALSE(FileManager::defaultManager().fileExistsAtPath("/"));
    }
    EXPECT_TRUE(FileManager::defaultManager().fileExistsAtPath("/"));
}

}  // namespace
}  // namespace platform
