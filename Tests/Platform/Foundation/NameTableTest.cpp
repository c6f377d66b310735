#include "Platform/Foundation/NameTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "Tests/Support/CollidingNames.h"

namespace platform {
namespace {

TEST(NameTable, KeepsTheFirstNumberOfAName) {
    NameTable table;
    EXPECT_EQ(table.find("a"), nullptr);
    EXPECT_EQ(table.add("a", 7), (std::pair<std::size_t, bool>{7, true}));
    EXPECT_EQ(table.add("a", 9), (std::pair<std::size_t, bool>{7, false}));
    EXPECT_EQ(table.add("", 9), (std::pair<std::size_t, bool>{9, true}));
    EXPECT_EQ(*table.find("a"), 7u);
    EXPECT_EQ(*table.find(std::string_view("ab", 1)), 7u);
    EXPECT_EQ(table.find("b"), nullptr);
}

TEST(NameTable, SpreadsNamesThatTheStandardHashTakesForOne) {
    const auto names = test::collidingNames(10'000);
    const std::size_t hash = std::hash<std::string>()(names.front());
    ASSERT_TRUE(std::all_of(names.begin(), names.end(), [&](const std::string& name) {
        return std::hash<std::string>()(name) == hash;
    })) << "the library's hash has changed: the names prove nothing";
    NameTable table;
    for (const std::string& name : names) {
        table.add(name, 0);
    }
    // A bucket of 30 does not come about by chance.
    EXPECT_LT(table.largestBucket(), 30u);
}

}  // namespace
}  // namespace platform
