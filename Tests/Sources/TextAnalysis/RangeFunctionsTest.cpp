#include "Sources/TextAnalysis/RangeFunctions.h"

#include <gtest/gtest.h>

#include "Tests/Support/Segments.h"

namespace parlavox {
namespace {

TEST(PVIntersectionRange, IsWhatTwoRangesShareOrNotFound) {
    struct Row {
        const char* name;
        Range first;
        Range second;
        Range want;
    };
    constexpr std::uint64_t kHuge = ~0ULL;
    constexpr Row kRows[] = {
        {"an insertion point inside", {0, 5}, {3, 0}, {3, 0}},
        {"an insertion point at the start", {2, 5}, {2, 0}, {2, 0}},
        {"an insertion point at the end", {0, 5}, {5, 0}, NotFoundRange},
        {"the empty range at 0", {0, 5}, {0, 0}, {0, 0}},
        {"two empty ranges at 0", {0, 0}, {0, 0}, NotFoundRange},
        {"two empty ranges elsewhere", {4, 0}, {4, 0}, NotFoundRange},
        {"one inside the other", {2, 3}, {0, 10}, {2, 3}},
        {"equal ranges", {2, 3}, {2, 3}, {2, 3}},
        {"ends in common", {0, 10}, {7, 3}, {7, 3}},
        {"an overlap", {0, 5}, {3, 9}, {3, 2}},
        {"ranges that touch", {0, 3}, {3, 4}, NotFoundRange},
        {"ranges apart", {0, 3}, {5, 4}, NotFoundRange},
        {"one that ends beyond 64 bits and begins later", {0, 6}, {5, kHuge}, {5, kHuge}},
        {"one that ends beyond 64 bits and begins first", {3, kHuge}, {5, 2}, NotFoundRange},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(PVIntersectionRange(row.first, row.second), row.want);
        EXPECT_EQ(PVIntersectionRange(row.second, row.first), row.want);
    }
}

TEST(NotFoundRange, IsTheLargestSignedLocationWithoutLength) {
    EXPECT_EQ(NotFoundRange.location, 0x7FFFFFFFFFFFFFFFu);
    EXPECT_EQ(NotFoundRange.length, 0u);
}

}  // namespace
}  // namespace parlavox
