#include <gtest/gtest.h>
#include <limits.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Platform/Foundation/FileManager.h"
#include "Sources/CocoaExtensions/Zip/ZipTemporaryFolder.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tests/Sources/CocoaExtensions/Zip/ZipTestFolder.h"

namespace parlavox {
namespace {

namespace fs = std::filesystem;

/// Compares with a pattern in which "X" stands for an upper-case hexadecimal digit.
bool hasForm(std::string_view text, std::string_view pattern) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(),
                      [](char c, char wanted) {
                          const bool isDigit = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
                          return wanted == 'X' ? isDigit : c == wanted;
                      });
}

TEST(ZipTemporaryFiles, IdentifiersAreRandomAndOfTheCanonicalForm) {
    std::set<std::string> seen;
    for (int i = 0; i < 100; ++i) {
        const std::string identifier = ZipWrapper::generatedUID();
        EXPECT_TRUE(hasForm(identifier, "XXXXXXXX-XXXX-4XXX-XXXX-XXXXXXXXXXXX")) << identifier;
        EXPECT_NE(std::string_view("89AB").find(identifier[19]), std::string_view::npos);
        EXPECT_TRUE(seen.insert(identifier).second);
    }
}

TEST(ZipTemporaryFiles, FolderIsMadeOnceInsideTheTemporaryDirectory) {
    const ZipTestFolder folder;
    const auto path = ZipWrapper::tempFolderPath();
    ASSERT_TRUE(path);
    EXPECT_TRUE(fs::is_directory(*path));
    EXPECT_EQ(fs::path(*path).parent_path(), folder.path());
    EXPECT_EQ(fs::path(*path).filename().string().size(), 36u);
    fs::remove(*path);
    EXPECT_EQ(ZipWrapper::tempFolderPath(), path) << "later calls don't look at the disk";
    EXPECT_FALSE(fs::exists(*path));
}

TEST(ZipTemporaryFiles, FolderIsClosedToOtherUsers) {
    const ZipTestFolder folder;
    const mode_t before = ::umask(0);
    const auto path = ZipWrapper::tempFolderPath();
    ::umask(before);
    ASSERT_TRUE(path);
    struct stat info = {};
    ASSERT_EQ(::stat(path->c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0700u);
}

TEST(ZipTemporaryFiles, PathsAreNewAndTakeAnExtension) {
    const ZipTestFolder folder;
    const auto path = ZipWrapper::generatedTempFilePathWithExtension("plist");
    ASSERT_TRUE(path);
    EXPECT_EQ(fs::path(*path).parent_path(), *ZipWrapper::tempFolderPath());
    EXPECT_EQ(fs::path(*path).extension(), ".plist");
    EXPECT_EQ(fs::path(*path).stem().string().size(), 36u);
    const auto bare = ZipWrapper::generatedTempFilePathWithExtension(std::nullopt);
    EXPECT_EQ(fs::path(*bare).filename().string().size(), 36u);
    EXPECT_TRUE(ZipWrapper::generatedTempFilePathWithExtension("")->ends_with("."))
        << "an empty extension is one, too";
    EXPECT_NE(path, ZipWrapper::generatedTempFilePathWithExtension("plist"));
    EXPECT_TRUE(fs::is_empty(*ZipWrapper::tempFolderPath())) << "no file is made";
}

TEST(ZipTemporaryFiles, FolderThatCannotBeMadeIsTriedAgain) {
    const ZipTestFolder folder;
    setenv("TMPDIR", (folder.path() / "missing").c_str(), 1);
    EXPECT_EQ(ZipWrapper::tempFolderPath(), std::nullopt);
    EXPECT_EQ(ZipWrapper::generatedTempFilePathWithExtension("plist"), std::nullopt);
    setenv("TMPDIR", folder.path().c_str(), 1);
    EXPECT_NE(ZipWrapper::tempFolderPath(), std::nullopt);
}

TEST(ZipTemporaryFolder, FirstPathThatFitsIsKept) {
    const ZipTestFolder folder;
    ZipTemporaryFolder::publish(std::string(PATH_MAX, 'p'));
    EXPECT_EQ(ZipTemporaryFolder::cachedPath(), nullptr) << "no room for the end of the string";
    ZipTemporaryFolder::publish("/first");
    ZipTemporaryFolder::publish("/second");
    EXPECT_STREQ(ZipTemporaryFolder::cachedPath(), "/first");
    ZipWrapperTestPeer::forgetTemporaryFolder();
    EXPECT_EQ(ZipTemporaryFolder::cachedPath(), nullptr);
}

TEST(ZipTemporaryFiles, FirstCallsAtOnceAllGetAFolder) {
    const ZipTestFolder folder;
    std::vector<std::thread> threads;
    std::vector<std::optional<std::string>> paths(8);
    for (auto& path : paths) {
        threads.emplace_back([&path] { path = ZipWrapper::tempFolderPath(); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const auto kept = ZipWrapper::tempFolderPath();
    for (const auto& path : paths) {
        ASSERT_TRUE(path);
        EXPECT_TRUE(fs::is_directory(*path));
    }
    EXPECT_NE(std::find(paths.begin(), paths.end(), kept), paths.end());
}

}  // namespace
}  // namespace parlavox
