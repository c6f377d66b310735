#include "Platform/Foundation/FileWrapperChildren.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Platform/Foundation/FileWrapper.h"

namespace platform {
namespace {

std::shared_ptr<FileWrapper> file() {
    return FileWrapper::initRegularFileWithContents(Data());
}

std::vector<std::string> keys(const FileWrapperChildren& children) {
    std::vector<std::string> keys;
    std::transform(children.begin(), children.end(), std::back_inserter(keys),
                   [](const FileWrapperEntry& entry) { return entry.key; });
    return keys;
}

using Keys = std::vector<std::string>;

TEST(FileWrapperChildren, EmptyFindsNothing) {
    FileWrapperChildren children;
    EXPECT_TRUE(children.empty());
    EXPECT_EQ(children.begin(), children.end());
    EXPECT_EQ(children.find("a"), nullptr);
    EXPECT_EQ(children.keyOf(*file()), std::nullopt);
    EXPECT_FALSE(children.remove(*file()));
}

TEST(FileWrapperChildren, KeepOrderThroughRemovalAndAddition) {
    FileWrapperChildren children;
    const auto first = file();
    const auto second = file();
    EXPECT_TRUE(children.add("z", first));
    EXPECT_TRUE(children.add("a", second));
    EXPECT_TRUE(children.add("m", file()));
    EXPECT_TRUE(children.remove(*first));
    EXPECT_EQ(keys(children), (Keys{"a", "m"}));
    EXPECT_TRUE(children.add("z", first));
    EXPECT_EQ(keys(children), (Keys{"a", "m", "z"}));
    EXPECT_EQ(children.size(), 3u);
    EXPECT_EQ(children.find("a"), second);
}

TEST(FileWrapperChildren, IteratorStepsToTheNextOneThatIsThere) {
    FileWrapperChildren children;
    const auto removed = file();
    EXPECT_TRUE(children.add("a", file()));
    EXPECT_TRUE(children.add("b", removed));
    EXPECT_TRUE(children.add("c", file()));
    EXPECT_TRUE(children.remove(*removed));
    auto at = children.begin();
    const auto before = at++;
    EXPECT_EQ((*before).key, "a");
    EXPECT_EQ((*at).key, "c");
    EXPECT_EQ(++at, children.end());
}

TEST(FileWrapperChildren, TakenKeyIsRefused) {
    FileWrapperChildren children;
    const auto first = file();
    EXPECT_TRUE(children.add("a", first));
    EXPECT_FALSE(children.add("a", file()));
    EXPECT_EQ(children.find("a"), first);
    EXPECT_EQ(children.size(), 1u);
}

TEST(FileWrapperChildren, OneChildMayHaveSeveralKeys) {
    FileWrapperChildren children;
    const auto child = file();
    children.add("c", child);
    children.add("x", file());
    children.add("a", child);
    children.add("b", child);
    EXPECT_EQ(children.keyOf(*child), "c") << "the oldest";
    EXPECT_TRUE(children.remove(*child));
    EXPECT_EQ(keys(children), Keys{"x"});
    EXPECT_EQ(children.find("a"), nullptr);
    EXPECT_EQ(children.keyOf(*child), std::nullopt);
}

TEST(FileWrapperChildren, ForgetsNumberedKeysOnceEmpty) {
    FileWrapperChildren children;
    const auto first = file();
    const auto second = file();
    EXPECT_EQ(children.addUnderFreeKey("a", first), "a");
    EXPECT_EQ(children.addUnderFreeKey("a", second), "1__#$!@%!#__a");
    EXPECT_TRUE(children.remove(*first));
    EXPECT_EQ(children.addUnderFreeKey("a", first), "a") << "the plain name is free again";
    EXPECT_TRUE(children.remove(*first));
    EXPECT_TRUE(children.remove(*second));
    EXPECT_EQ(children.addUnderFreeKey("a", second), "a");
    EXPECT_EQ(children.addUnderFreeKey("a", first), "1__#$!@%!#__a");
}

// Adds and removes many children in several orders, and compares with what a list would hold.
TEST(FileWrapperChildren, ManyAreFoundWhateverWasRemovedBefore) {
    constexpr std::size_t kCount = 3000;
    FileWrapperChildren children;
    std::vector<std::shared_ptr<FileWrapper>> files;
    for (std::size_t i = 0; i < kCount; ++i) {
        files.push_back(file());
        ASSERT_TRUE(children.add("name " + std::to_string(i), files[i]));
    }
    Keys kept;
    for (std::size_t i = 0; i < kCount; ++i) {
        if (i % 7 == 0) {
            kept.push_back("name " + std::to_string(i));
        } else {
            ASSERT_TRUE(children.remove(*files[i])) << i;
        }
    }
    EXPECT_EQ(keys(children), kept);
    for (std::size_t i = 0; i < kCount; ++i) {
        const std::string key = "name " + std::to_string(i);
        EXPECT_EQ(children.find(key), i % 7 == 0 ? files[i] : nullptr) << i;
        EXPECT_EQ(children.keyOf(*files[i]).has_value(), i % 7 == 0) << i;
    }
}

// With a search per step these would take minutes.
TEST(FileWrapperChildren, CostDoesNotGrowWithTheirNumber) {
    constexpr std::size_t kCount = 100'000;
    FileWrapperChildren children;
    std::vector<std::shared_ptr<FileWrapper>> files;
    for (std::size_t i = 0; i < kCount; ++i) {
        files.push_back(file());
        children.addUnderFreeKey("image.png", files[i]);
    }
    EXPECT_EQ(children.keyOf(*files[kCount - 1]), "99999__#$!@%!#__image.png");
    for (std::size_t i = 0; i < kCount; ++i) {
        children.remove(*files[i]);
        EXPECT_EQ(children.begin() == children.end(), i == kCount - 1);
    }
}

}  // namespace
}  // namespace platform
