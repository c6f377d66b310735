#include "Platform/Foundation/IndexSet.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "Platform/Foundation/ArrayIndexes.h"
#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

TEST(IndexSet, KeepsEachIndexOnceAndInOrder) {
    const IndexSet set{5, 1, 2, 5, 3, 9};
    EXPECT_EQ(set.ranges(), (std::vector<Range>{{1, 3}, {5, 1}, {9, 1}}));
    EXPECT_EQ(set.count(), 5u);
    EXPECT_EQ(set.firstIndex(), 1u);
    EXPECT_EQ(set.lastIndex(), 9u);
    for (std::uint64_t i = 0; i < 12; i++) {
        EXPECT_EQ(set.containsIndex(i), (i >= 1 && i <= 3) || i == 5 || i == 9) << i;
    }
    EXPECT_EQ(set, (IndexSet{9, 5, 3, 2, 1}));
    EXPECT_FALSE(set == (IndexSet{9, 5, 3, 2}));
}

TEST(IndexSet, AnEmptyOneHasNoFirstAndNoLast) {
    for (const IndexSet& set : {IndexSet(), IndexSet::indexSetWithIndexesInRange({7, 0})}) {
        EXPECT_TRUE(set.isEmpty());
        EXPECT_EQ(set.count(), 0u);
        EXPECT_EQ(set.firstIndex(), kNotFound);
        EXPECT_EQ(set.lastIndex(), kNotFound);
        EXPECT_FALSE(set.containsIndex(0));
    }
}

TEST(IndexSet, IndexesEndBeforeNotFound) {
    EXPECT_EQ(IndexSet{kNotFound - 1}.lastIndex(), kNotFound - 1);
    EXPECT_THROW(IndexSet{kNotFound}, InvalidArgumentException);
    EXPECT_EQ(IndexSet::indexSetWithIndexesInRange({0, kNotFound}).count(), kNotFound);
    EXPECT_THROW((void)IndexSet::indexSetWithIndexesInRange({1, kNotFound}),
                 InvalidArgumentException);
    EXPECT_THROW((void)IndexSet::indexSetWithIndexesInRange({kNotFound, 0}),
                 InvalidArgumentException);
}

Array arrayOf(const std::u16string& letters) {
    Array array;
    for (const char16_t letter : letters) {
        array.emplace_back(std::u16string(1, letter));
    }
    return array;
}

std::u16string lettersOf(const Array& array) {
    std::u16string letters;
    for (const Value& value : array) {
        letters += *value.string();
    }
    return letters;
}

TEST(ArrayIndexes, InsertsWhereObjectsShallBe) {
    const struct {
        const char16_t* objects;
        IndexSet indexes;
        const char16_t* result;
    } kRows[] = {
        {u"xy", {1, 3}, u"axbycd"}, {u"xy", {0, 2}, u"xaybcd"}, {u"xy", {4, 5}, u"abcdxy"},
        {u"x", {4}, u"abcdx"},      {u"", {}, u"abcd"},         {u"xyz", {0, 1, 2}, u"xyzabcd"},
    };
    for (const auto& row : kRows) {
        Array array = arrayOf(u"abcd");
        insertObjects(array, arrayOf(row.objects), row.indexes);
        EXPECT_EQ(lettersOf(array), row.result);
    }
}

TEST(ArrayIndexes, RefusesBeforeItChangesAnything) {
    Array array = arrayOf(u"abcd");
    const Array one = arrayOf(u"x");
    EXPECT_THROW(insertObjects(array, one, {5}), RangeException);
    EXPECT_THROW(insertObjects(array, arrayOf(u"xy"), {0, 6}), RangeException);
    EXPECT_THROW(removeObjectsAtIndexes(array, {0, 4}), RangeException);
    EXPECT_THROW((void)objectsAtIndexes(array, {4}), RangeException);
    EXPECT_THROW(replaceObjectsAtIndexes(array, {4}, one), RangeException);
    for (const std::uint64_t index : {std::uint64_t{4}, kNotFound, ~std::uint64_t{0}}) {
        EXPECT_THROW((void)objectAtIndex(array, index), RangeException);
        EXPECT_THROW(removeObjectAtIndex(array, index), RangeException);
        EXPECT_THROW(insertObject(array, Value(1), index + (index == 4 ? 1 : 0)), RangeException);
    }
    EXPECT_THROW(replaceObjectsAtIndexes(array, {0, 1}, one), InvalidArgumentException);
    try {
        insertObjects(array, arrayOf(u"xy"), {0});
        FAIL();
    } catch (const InvalidArgumentException& exception) {
        EXPECT_EQ(exception.reason(),
                  "*** -[NSMutableArray insertObjects:atIndexes:]: count of array (2) differs from "
                  "count of index set (1)");
    }
    EXPECT_EQ(lettersOf(array), u"abcd");
}

TEST(ArrayIndexes, TakesReplacesAndRemovesAtOnce) {
    Array array = arrayOf(u"abcdef");
    const IndexSet indexes{1, 2, 4};
    EXPECT_EQ(lettersOf(objectsAtIndexes(array, indexes)), u"bce");
    replaceObjectsAtIndexes(array, indexes, arrayOf(u"xyz"));
    EXPECT_EQ(lettersOf(array), u"axydzf");
    removeObjectsAtIndexes(array, indexes);
    EXPECT_EQ(lettersOf(array), u"adf");
    insertObject(array, Value(u"q"), 3);
    removeObjectAtIndex(array, 0);
    EXPECT_EQ(lettersOf(array), u"dfq");
    EXPECT_EQ(objectAtIndex(array, 2), Value(u"q"));
}

TEST(ArrayIndexes, RemovingUndoesInserting) {
    std::mt19937 random(1);
    for (int round = 0; round < 300; round++) {
        const Array before = arrayOf(std::u16string(random() % 10, u'a'));
        std::set<std::uint64_t> chosen;
        while (chosen.size() < random() % 6) {
            chosen.insert(random() % (before.size() + chosen.size() + 1));
        }
        const IndexSet indexes(std::vector<std::uint64_t>(chosen.begin(), chosen.end()));
        const Array objects = arrayOf(std::u16string(u"uvwxyz").substr(0, chosen.size()));
        Array array = before;
        try {
            insertObjects(array, objects, indexes);
        } catch (const RangeException&) {
            continue;
        }
        EXPECT_EQ(objectsAtIndexes(array, indexes), objects);
        removeObjectsAtIndexes(array, indexes);
        EXPECT_EQ(array, before);
    }
}

}  // namespace
}  // namespace platform
