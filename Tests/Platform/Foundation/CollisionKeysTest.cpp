#include "Platform/Foundation/CollisionKeys.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace platform {
namespace {

// Takes keys as a folder does.
class Folder {
public:
    std::string add(const std::string& name) {
        std::string key = keys_.keyForName(
            name, [this](const std::string& candidate) { return taken.contains(candidate); });
        taken.insert(key);
        return key;
    }
    void remove(const std::string& key) {
        taken.erase(key);
        keys_.keyIsFree(key);
    }

    std::set<std::string> taken;

private:
    CollisionKeys keys_;
};

TEST(CollisionKeys, CountsFromOneForEachName) {
    Folder folder;
    EXPECT_EQ(folder.add("image.png"), "1__#$!@%!#__image.png");
    EXPECT_EQ(folder.add("image.png"), "2__#$!@%!#__image.png");
    EXPECT_EQ(folder.add("b"), "1__#$!@%!#__b");
    EXPECT_EQ(folder.add("image.png"), "3__#$!@%!#__image.png");
}

TEST(CollisionKeys, PassesOverKeysThatAreTaken) {
    Folder folder;
    folder.taken = {"1__#$!@%!#__a", "3__#$!@%!#__a"};
    EXPECT_EQ(folder.add("a"), "2__#$!@%!#__a");
    EXPECT_EQ(folder.add("a"), "4__#$!@%!#__a");
}

TEST(CollisionKeys, LowestFreedKeyComesFirst) {
    Folder folder;
    for (int i = 0; i < 5; ++i) {
        folder.add("a");
    }
    folder.remove("4__#$!@%!#__a");
    folder.remove("2__#$!@%!#__a");
    folder.remove("2__#$!@%!#__a");
    EXPECT_EQ(folder.add("a"), "2__#$!@%!#__a");
    EXPECT_EQ(folder.add("a"), "4__#$!@%!#__a");
    EXPECT_EQ(folder.add("a"), "6__#$!@%!#__a");
}

TEST(CollisionKeys, NameMayLookLikeAKey) {
    Folder folder;
    EXPECT_EQ(folder.add("1__#$!@%!#__a"), "1__#$!@%!#__1__#$!@%!#__a");
    EXPECT_EQ(folder.add("1__#$!@%!#__a"), "2__#$!@%!#__1__#$!@%!#__a");
    folder.remove("1__#$!@%!#__1__#$!@%!#__a");
    EXPECT_EQ(folder.add("1__#$!@%!#__a"), "1__#$!@%!#__1__#$!@%!#__a");
}

TEST(CollisionKeys, KeysThatWereNeverGivenOutAreNotFreed) {
    Folder folder;
    folder.add("a");
    for (const char* key : {"a", "9__#$!@%!#__a", "0__#$!@%!#__a", "x__#$!@%!#__a", "__#$!@%!#__a",
                            "99999999999999999999__#$!@%!#__a", ""}) {
        folder.remove(key);
    }
    EXPECT_EQ(folder.add("a"), "2__#$!@%!#__a");
}

TEST(CollisionKeys, RemovingTheFirstAgainAndAgainCostsNoSearch) {
    Folder folder;
    constexpr int kCount = 50'000;
    for (int i = 0; i < kCount; ++i) {
        folder.add("a");
    }
    for (int i = 0; i < kCount; ++i) {
        folder.remove("1__#$!@%!#__a");
        EXPECT_EQ(folder.add("a"), "1__#$!@%!#__a");
        folder.add("a");
    }
    EXPECT_EQ(folder.taken.size(), 2u * kCount);
}

}  // namespace
}  // namespace platform
