#include "Platform/Foundation/Value.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "Platform/Foundation/NameTable.h"
#include "Tests/Support/CollidingNames.h"

namespace platform {

class DictionaryTestPeer {
public:
    static const NameTable* index(const Dictionary& dictionary) {
        return dictionary.keys_->index_.get();
    }
};

namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

TEST(Value, IntegerValueReadsNumbersAndStrings) {
    struct Row {
        const char* name;
        Value value;
        std::optional<std::int64_t> want;
    };
    const Row rows[] = {
        {"integer", Value(std::int64_t{-7}), -7},
        {"boolean", Value(true), 1},
        {"above the signed range", Value(std::numeric_limits<std::uint64_t>::max()), kMax},
        {"real toward zero", Value(-2.9), -2},
        {"real beyond the range", Value(1e300), kMax},
        {"real below the range", Value(-1e300), kMin},
        {"no number", Value(std::numeric_limits<double>::quiet_NaN()), 0},
        {"digits then letters", Value(u"123a"), 123},
        {"negative digits", Value(u"-123a"), -123},
        {"plus sign", Value(u"+123"), 123},
        {"two signs", Value(u"++123"), 0},
        {"two minus signs", Value(u"--123"), 0},
        {"letters first", Value(u"a123"), 0},
        {"leading white space",
         Value(u" \t\u00A0"
               u"2"),
         2},
        {"fraction", Value(u"1.6"), 1},
        {"empty string", Value(u""), 0},
        {"thirty nines", Value(std::u16string(30, u'9')), kMax},
        {"minus thirty nines", Value(u"-" + std::u16string(30, u'9')), kMin},
        {"largest", Value(u"9223372036854775807"), kMax},
        {"one above the largest", Value(u"9223372036854775808"), kMax},
        {"smallest", Value(u"-9223372036854775808"), kMin},
        {"null", Value(), std::nullopt},
        {"array", Value(Array{}), std::nullopt},
        {"date", Value(Date{4}), std::nullopt},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.value.integerValue(), row.want);
    }
}

TEST(Value, UnsignedIntegersInTheSignedRangeAreSignedOnes) {
    EXPECT_EQ(Value(std::uint64_t{5}), Value(std::int64_t{5}));
    EXPECT_EQ(Value(std::uint64_t{5}).integer(), 5);
    const Value large(std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(large.integer(), std::nullopt);
    EXPECT_EQ(large.unsignedInteger(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(Value(-1).unsignedInteger(), std::nullopt);
}

TEST(Value, AccessorsOfOtherKindsAnswerNothing) {
    const Value text(u"words");
    EXPECT_EQ(text.boolean(), std::nullopt);
    EXPECT_EQ(text.integer(), std::nullopt);
    EXPECT_EQ(text.real(), std::nullopt);
    EXPECT_EQ(text.data(), nullptr);
    EXPECT_EQ(text.array(), nullptr);
    EXPECT_EQ(text.dictionary(), nullptr);
    EXPECT_EQ(text.uid(), std::nullopt);
    EXPECT_EQ(Value(1).string(), nullptr);
    EXPECT_EQ(Value(1).utf8(), std::nullopt);
}

TEST(Value, ComparesByContent) {
    const Value one = Dictionary{{"a", Value(Array{1, u"x"})}, {"b", Value(2.5)}};
    const Value same = Dictionary{{"b", Value(2.5)}, {"a", Value(Array{1, u"x"})}};
    EXPECT_EQ(one, same);
    EXPECT_FALSE(one == Value(Dictionary{{"a", Value(Array{1, u"y"})}, {"b", Value(2.5)}}));
    EXPECT_FALSE(Value(1) == Value(1.0));
}

TEST(Value, ObjectsAreComparedByIdentity) {
    const auto make = [] {
        return std::make_shared<const Object>();
    };
    const auto object = make();
    EXPECT_EQ(Value(object), Value(object));
    EXPECT_FALSE(Value(object) == Value(make()));
}

TEST(Dictionary, AssignmentTakesTheEntriesOver) {
    for (const int count : {3, 1000}) {
        Dictionary source;
        for (int i = 0; i < count; ++i) {
            source.set("key" + std::to_string(i), Value(i));
        }
        Dictionary target{{"former", Value(true)}};
        target = source;
        EXPECT_EQ(Value(target), Value(source));
        EXPECT_EQ(target.find("former"), nullptr);
        target.set("key0", Value(u"changed"));
        EXPECT_EQ(source["key0"], Value(0)) << "a copy of its own";
    }
}

TEST(Dictionary, FindsKeysAmongFewAndMany) {
    for (const int count : {1, 16, 17, 1000}) {
        Dictionary dictionary;
        for (int i = 0; i < count; ++i) {
            dictionary.set("key" + std::to_string(i), Value(i));
        }
        dictionary.set("key0", Value(u"again"));
        EXPECT_EQ(dictionary.size(), static_cast<std::size_t>(count));
        EXPECT_EQ(dictionary["key0"], Value(u"again"));
        EXPECT_EQ(dictionary.entries().front().first, "key0");
        const Dictionary copy = dictionary;
        for (int i = 1; i < count; ++i) {
            EXPECT_EQ(copy["key" + std::to_string(i)], Value(i));
        }
        EXPECT_EQ(copy.find("other"), nullptr);
        EXPECT_TRUE(copy["other"].isNull());
    }
}

TEST(Dictionary, KeysThatWereChosenToCollideAreFoundLikeOthers) {
    Dictionary dictionary;
    const auto names = test::collidingNames(10'000);
    for (const std::string& name : names) {
        dictionary.set(name, Value(true));
    }
    EXPECT_EQ(dictionary.size(), names.size());
    EXPECT_EQ(dictionary[names.back()], Value(true));
    ASSERT_NE(DictionaryTestPeer::index(dictionary), nullptr);
    EXPECT_LT(DictionaryTestPeer::index(dictionary)->largestBucket(), 30u);
}

}  // namespace
}  // namespace platform
