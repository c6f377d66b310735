#include "Host/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <string>

#include "Tests/Support/TemporaryFolder.h"

namespace host {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kPrivate = 0700;

/// A base folder, and folders in it such as earlier runs may have left.
class TemporaryFolderTest : public testing::Test {
protected:
    /// Makes a folder that is left behind with an unlocked lock and a file in a folder.
    std::string leave(const std::string& name, mode_t mode = kPrivate) const {
        base.write(name + "/lock", "");
        base.write(name + "/sub/file", "text");
        ::chmod(base.path(name).c_str(), mode);
        return base.path(name);
    }

    /// Makes the folder look as if nothing had changed in it for two hours.
    static void age(const std::string& path) {
        const timespec before{::time(nullptr) - 7200, 0};
        const timespec times[2] = {before, before};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }

    test::TemporaryFolder base;
};

TEST_F(TemporaryFolderTest, IsPrivateAndGoesWithAllThatIsInIt) {
    std::string path;
    {
        const platform::Result<TemporaryFolder> folder = TemporaryFolder::make(base.path());
        ASSERT_TRUE(folder);
        path = folder.value().path();
        struct stat status {};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, kPrivate);
        EXPECT_TRUE(fs::exists(path + "/lock"));
        EXPECT_FALSE(fs::exists(path + "/lock.new"));
        fs::create_directories(path + "/a/b");
        fs::create_directory_symlink(base.path(), path + "/a/link");
    }
    EXPECT_FALSE(fs::exists(path));
    EXPECT_TRUE(fs::exists(base.path()));
}

TEST_F(TemporaryFolderTest, NeedsABaseThatIsThere) {
    const platform::Result<TemporaryFolder> folder = TemporaryFolder::make(base.path("missing"));
    ASSERT_FALSE(folder);
    EXPECT_EQ(folder.fault().detail, "No such file or directory");
}

TEST_F(TemporaryFolderTest, FilesCountAlsoInItsFolders) {
    constexpr std::size_t kBlock = 4096;
    const platform::Result<TemporaryFolder> made = TemporaryFolder::make(base.path());
    ASSERT_TRUE(made);
    const TemporaryFolder& folder = made.value();
    const std::string name = fs::path(folder.path()).filename();
    // Its lock.
    EXPECT_TRUE(folder.holdsMoreThan(0));
    EXPECT_FALSE(folder.holdsMoreThan(kBlock));
    base.write(name + "/file", std::string(100'000, 'x'));
    EXPECT_TRUE(folder.holdsMoreThan(100'000));
    EXPECT_FALSE(folder.holdsMoreThan(100'000 + kBlock));
    base.write(name + "/sub/file", std::string(200'000, 'x'));
    EXPECT_TRUE(folder.holdsMoreThan(300'000));
    fs::create_symlink(base.write("elsewhere", std::string(1'000'000, 'x')),
                       folder.path() + "/link");
    fs::create_directory_symlink(base.path(), folder.path() + "/folder-link");
    EXPECT_FALSE(folder.holdsMoreThan(400'000)) << "a link is no more than itself";
    for (int i = 0; i < 100; ++i) {
        base.write(name + "/empty-" + std::to_string(i), "");
    }
    EXPECT_TRUE(folder.holdsMoreThan(300'000 + 100 * kBlock)) << "empty files take room, too";
}

TEST_F(TemporaryFolderTest, IsClearedOfAllButItsLock) {
    const platform::Result<TemporaryFolder> made = TemporaryFolder::make(base.path());
    ASSERT_TRUE(made);
    const std::string path = made.value().path();
    base.write("elsewhere/file", "");
    fs::create_directories(path + "/a/b");
    fs::create_directory_symlink(base.path("elsewhere"), path + "/link");
    made.value().clear();
    EXPECT_FALSE(fs::exists(path + "/a"));
    EXPECT_FALSE(fs::exists(fs::symlink_status(path + "/link")));
    EXPECT_TRUE(fs::exists(path + "/lock"));
    EXPECT_TRUE(fs::exists(base.path("elsewhere/file")));
}

TEST_F(TemporaryFolderTest, AForkedProcessLeavesItToItsOwner) {
    platform::Result<TemporaryFolder> made = TemporaryFolder::make(base.path());
    ASSERT_TRUE(made);
    const pid_t child = ::fork();
    if (child == 0) {
        made.value().leaveToOwner();
        { const TemporaryFolder gone = std::move(made).value(); }
        ::_exit(0);
    }
    int status = 1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    TemporaryFolder::removeStale(base.path());
    EXPECT_TRUE(fs::exists(made.value().path()));
}

TEST_F(TemporaryFolderTest, WhatKilledRunsHaveLeftIsRemoved) {
    leave("pvindex-aB3xY9");
    leave("pvindex-000000");
    TemporaryFolder::removeStale(base.path());
    EXPECT_TRUE(base.names().empty());
}

TEST_F(TemporaryFolderTest, WhatALivingRunOwnsStays) {
    const platform::Result<TemporaryFolder> folder = TemporaryFolder::make(base.path());
    ASSERT_TRUE(folder);
    age(folder.value().path());
    TemporaryFolder::removeStale(base.path());
    EXPECT_TRUE(fs::exists(folder.value().path() + "/lock"));
}

TEST_F(TemporaryFolderTest, OtherNamesStay) {
    for (const char* name :
         {"pvindex-aB3xY", "pvindex-aB3xY99", "pvindex-aB3x.9", "Pvindex-aB3xY9", "other-aB3xY9"}) {
        SCOPED_TRACE(name);
        leave(name);
        TemporaryFolder::removeStale(base.path());
        EXPECT_TRUE(fs::exists(base.path(name) + "/sub/file"));
    }
}

TEST_F(TemporaryFolderTest, AFolderThatOthersCouldReadIsNoneOfOurs) {
    const std::string path = leave("pvindex-aB3xY9", 0755);
    TemporaryFolder::removeStale(base.path());
    EXPECT_TRUE(fs::exists(path));
}

TEST_F(TemporaryFolderTest, LinksAreNotFollowed) {
    const std::string victim = leave("victim");
    fs::create_directory_symlink(victim, base.path("pvindex-aB3xY9"));
    // The folder is ours, the lock leads elsewhere.
    const std::string path = leave("pvindex-bB3xY9");
    fs::remove(path + "/lock");
    fs::create_symlink(victim + "/lock", path + "/lock");
    TemporaryFolder::removeStale(base.path());
    EXPECT_TRUE(fs::exists(victim + "/sub/file"));
    EXPECT_TRUE(fs::is_symlink(base.path("pvindex-aB3xY9")));
    EXPECT_TRUE(fs::exists(path + "/sub/file"));
}

TEST_F(TemporaryFolderTest, ALinkWithinIsRemovedAndNotWhatItLeadsTo) {
    const std::string victim = leave("victim");
    fs::create_directory_symlink(victim, leave("pvindex-aB3xY9") + "/link");
    TemporaryFolder::removeStale(base.path());
    EXPECT_FALSE(fs::exists(base.path("pvindex-aB3xY9")));
    EXPECT_TRUE(fs::exists(victim + "/sub/file"));
}

TEST_F(TemporaryFolderTest, AFolderWithoutALockIsGivenTimeToGetOne) {
    const std::string path = leave("pvindex-aB3xY9");
    fs::remove(path + "/lock");
    TemporaryFolder::removeStale(base.path());
    EXPECT_TRUE(fs::exists(path));
    age(path);
    TemporaryFolder::removeStale(base.path());
    EXPECT_FALSE(fs::exists(path));
}

TEST_F(TemporaryFolderTest, ALockThatIsAPipeKeepsNobodyWaiting) {
    const std::string path = leave("pvindex-aB3xY9");
    fs::remove(path + "/lock");
    ASSERT_EQ(::mkfifo((path + "/lock").c_str(), 0600), 0);
    TemporaryFolder::removeStale(base.path());
    EXPECT_TRUE(fs::exists(path));
}

}  // namespace
}  // namespace host
