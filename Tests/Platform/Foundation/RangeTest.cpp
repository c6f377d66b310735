#include "Platform/Foundation/Range.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

namespace platform {
namespace {

TEST(Range, EndIsExclusive) {
    EXPECT_EQ((Range{3, 4}).end(), 7u);
}

TEST(Range, LiesWithinWithoutOverflow) {
    constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
    struct Row {
        const char* name;
        Range range;
        std::uint64_t size;
        bool want;
    };
    constexpr Row kRows[] = {
        {"whole", {0, 5}, 5, true},
        {"empty at the end", {5, 0}, 5, true},
        {"empty beyond the end", {6, 0}, 5, false},
        {"one too long", {1, 5}, 5, false},
        {"the sum overflows", {2, kMax}, 5, false},
        {"the location is huge", {kMax, 1}, 5, false},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.range.liesWithin(row.size), row.want);
    }
}

TEST(Range, IntersectionIsWhatBothShare) {
    struct Row {
        const char* name;
        Range first, second, want;
    };
    constexpr Row kRows[] = {
        {"overlap", {0, 5}, {3, 5}, {3, 2}},
        {"one inside the other", {0, 9}, {3, 2}, {3, 2}},
        {"touching share nothing", {0, 3}, {3, 2}, {0, 0}},
        {"apart", {0, 3}, {7, 2}, {0, 0}},
        {"empty", {4, 0}, {0, 9}, {0, 0}},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(intersectionRange(row.first, row.second), row.want);
        EXPECT_EQ(intersectionRange(row.second, row.first), row.want);
    }
}

}  // namespace
}  // namespace platform
