#include <gtest/gtest.h>

#include <map>
#include <string>
#include <string_view>

#include "Tests/Platform/CoreFoundation/Ref.h"

namespace {

using namespace std::string_view_literals;
using test::makeString;
using test::own;
using test::Ref;
using test::unitsOf;
using test::utf8Of;

Ref<CFMutableDictionaryRef> makeDictionary() {
    return own(CFDictionaryCreateMutable(nullptr, 0, &kCFTypeDictionaryKeyCallBacks,
                                         &kCFTypeDictionaryValueCallBacks));
}

TEST(CFDictionary, SetReplacesAndAddKeeps) {
    const auto dictionary = makeDictionary();
    CFDictionarySetValue(dictionary.get(), CFSTR("k"), CFSTR("one"));
    CFDictionarySetValue(dictionary.get(), CFSTR("k"), CFSTR("two"));
    CFDictionaryAddValue(dictionary.get(), CFSTR("k"), CFSTR("three"));
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), CFSTR("k")), CFSTR("two"));
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 1);
}

TEST(CFDictionary, EqualKeysMeet) {
    const auto dictionary = makeDictionary();
    CFDictionarySetValue(dictionary.get(), CFSTR("caf"), CFSTR("constant"));
    const auto made = makeString("caf"sv);
    EXPECT_TRUE(CFDictionaryContainsKey(dictionary.get(), made.get()));
    const auto composed = makeString("caf\u00E9"sv);
    const auto decomposed = makeString("cafe\u0301"sv);
    CFDictionarySetValue(dictionary.get(), composed.get(), CFSTR("composed"));
    EXPECT_FALSE(CFDictionaryContainsKey(dictionary.get(), decomposed.get()));
}

TEST(CFDictionary, OwnsKeysAndValuesWhileTheyAreInIt) {
    const auto dictionary = makeDictionary();
    const auto key = makeString("a key"sv);
    const auto value = makeString("a value"sv);
    const auto owners = [&] {
        return std::pair(CFGetRetainCount(key.get()), CFGetRetainCount(value.get()));
    };
    CFDictionarySetValue(dictionary.get(), key.get(), value.get());
    EXPECT_EQ(owners(), std::pair(2L, 2L));
    CFDictionarySetValue(dictionary.get(), key.get(), value.get());
    EXPECT_EQ(owners(), std::pair(2L, 2L)) << "the same value again";
    CFDictionaryAddValue(dictionary.get(), key.get(), key.get());
    EXPECT_EQ(owners(), std::pair(2L, 2L)) << "a value that is not taken";
    CFDictionaryRemoveValue(dictionary.get(), key.get());
    EXPECT_EQ(owners(), std::pair(1L, 1L));
    CFDictionaryRemoveValue(dictionary.get(), key.get());
    CFDictionarySetValue(dictionary.get(), key.get(), value.get());
    CFDictionaryRemoveAllValues(dictionary.get());
    EXPECT_EQ(owners(), std::pair(1L, 1L));
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 0);
}

TEST(CFDictionary, NullIsNoKey) {
    const auto dictionary = makeDictionary();
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), nullptr), nullptr);
    EXPECT_FALSE(CFDictionaryContainsKey(dictionary.get(), nullptr));
    EXPECT_FALSE(CFDictionaryGetValueIfPresent(dictionary.get(), nullptr, nullptr));
    CFDictionaryRemoveValue(dictionary.get(), nullptr);
}

TEST(CFDictionary, NullKeysNullValuesAndChangesToConstantsEndTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto dictionary = makeDictionary();
    EXPECT_DEATH(CFDictionarySetValue(dictionary.get(), nullptr, CFSTR("v")), "CFHash");
    EXPECT_DEATH(CFDictionarySetValue(dictionary.get(), CFSTR("k"), nullptr), "CFRetain");
    const auto constant = own(const_cast<CFMutableDictionaryRef>(
        CFDictionaryCreate(nullptr, nullptr, nullptr, 0, nullptr, nullptr)));
    EXPECT_DEATH(CFDictionarySetValue(constant.get(), CFSTR("k"), CFSTR("v")),
                 "CFDictionarySetValue");
}

TEST(CFDictionary, OfAnyPointersComparesPointers) {
    const auto dictionary = own(CFDictionaryCreateMutable(nullptr, 0, nullptr, nullptr));
    const int values[] = {1, 1};
    CFDictionarySetValue(dictionary.get(), &values[0], &values[1]);
    CFDictionarySetValue(dictionary.get(), nullptr, &values[0]);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), &values[0]), &values[1]);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), &values[1]), nullptr);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), nullptr), &values[0]);
    CFDictionarySetValue(dictionary.get(), &values[1], nullptr);
    const void* value = &value;
    EXPECT_TRUE(CFDictionaryGetValueIfPresent(dictionary.get(), &values[1], &value));
    EXPECT_EQ(value, nullptr);
}

TEST(CFDictionary, ListsEveryPair) {
    const auto dictionary = makeDictionary();
    std::map<std::string, std::string> want;
    for (int i = 0; i < 100; ++i) {
        const std::string key = "key " + std::to_string(i);
        want[key] = std::to_string(i);
        CFDictionarySetValue(dictionary.get(), makeString(key).get(), makeString(want[key]).get());
    }
    const void* keys[100];
    const void* values[100];
    CFDictionaryGetKeysAndValues(dictionary.get(), keys, values);
    CFDictionaryGetKeysAndValues(dictionary.get(), nullptr, nullptr);
    std::map<std::string, std::string> listed;
    for (int i = 0; i < 100; ++i) {
        listed[utf8Of(static_cast<CFStringRef>(keys[i]))] =
            utf8Of(static_cast<CFStringRef>(values[i]));
    }
    EXPECT_EQ(listed, want);
    std::map<std::string, std::string> applied;
    CFDictionaryApplyFunction(
        dictionary.get(),
        [](const void* key, const void* value, void* context) {
            (*static_cast<std::map<std::string, std::string>*>(
                context))[utf8Of(static_cast<CFStringRef>(key))] =
                utf8Of(static_cast<CFStringRef>(value));
        },
        &applied);
    EXPECT_EQ(applied, want);
}

TEST(CFDictionary, IsEqualWithEqualPairs) {
    const auto first = makeDictionary();
    const auto second = makeDictionary();
    CFDictionarySetValue(first.get(), CFSTR("a"), makeString("x"sv).get());
    CFDictionarySetValue(first.get(), CFSTR("b"), CFSTR("y"));
    CFDictionarySetValue(second.get(), CFSTR("b"), CFSTR("y"));
    EXPECT_FALSE(CFEqual(first.get(), second.get()));
    CFDictionarySetValue(second.get(), CFSTR("a"), makeString("x"sv).get());
    EXPECT_TRUE(CFEqual(first.get(), second.get()));
    EXPECT_EQ(CFHash(first.get()), CFHash(second.get()));
    CFDictionarySetValue(second.get(), CFSTR("a"), CFSTR("z"));
    EXPECT_FALSE(CFEqual(first.get(), second.get()));
}

TEST(CFDictionary, MadeOfPairsKeepsTheFirstOfEqualKeys) {
    const void* keys[] = {CFSTR("k"), CFSTR("k")};
    const void* values[] = {CFSTR("first"), CFSTR("second")};
    const auto dictionary =
        own(CFDictionaryCreate(nullptr, keys, values, 2, &kCFTypeDictionaryKeyCallBacks,
                               &kCFTypeDictionaryValueCallBacks));
    EXPECT_EQ(CFDictionaryGetCount(dictionary.get()), 1);
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), CFSTR("k")), CFSTR("first"));
}

TEST(CFDictionary, KeepsTheKeyThatItsCallBackAnswers) {
    CFDictionaryKeyCallBacks copying = kCFTypeDictionaryKeyCallBacks;
    copying.retain = [](CFAllocatorRef, const void* key) -> const void* {
        return makeString(unitsOf(static_cast<CFStringRef>(key))).release();
    };
    const auto dictionary =
        own(CFDictionaryCreateMutable(nullptr, 0, &copying, &kCFTypeDictionaryValueCallBacks));
    const auto key = makeString("a key"sv);
    CFDictionarySetValue(dictionary.get(), key.get(), CFSTR("value"));
    EXPECT_EQ(CFGetRetainCount(key.get()), 1) << "the dictionary has a copy";
    EXPECT_EQ(CFDictionaryGetValue(dictionary.get(), key.get()), CFSTR("value"));
    const void* kept = nullptr;
    CFDictionaryGetKeysAndValues(dictionary.get(), &kept, nullptr);
    EXPECT_NE(kept, key.get());
    EXPECT_TRUE(CFEqual(kept, key.get()));
}

TEST(CFArray, OfAnyPointersNeitherOwnsNorComparesWhatTheyPointAt) {
    const int numbers[] = {1, 1};
    const void* first[] = {&numbers[0]};
    const void* second[] = {&numbers[1]};
    const auto array = own(CFArrayCreate(nullptr, first, 1, nullptr));
    EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 0), &numbers[0]);
    EXPECT_TRUE(CFEqual(array.get(), own(CFArrayCreate(nullptr, first, 1, nullptr)).get()));
    EXPECT_FALSE(CFEqual(array.get(), own(CFArrayCreate(nullptr, second, 1, nullptr)).get()));
}

TEST(CFArray, OwnsItsValuesInOrder) {
    const auto value = makeString("one"sv);
    {
        const auto array = own(CFArrayCreateMutable(nullptr, 0, &kCFTypeArrayCallBacks));
        CFArrayAppendValue(array.get(), value.get());
        CFArrayAppendValue(array.get(), CFSTR("two"));
        EXPECT_EQ(CFGetRetainCount(value.get()), 2);
        ASSERT_EQ(CFArrayGetCount(array.get()), 2);
        EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 0), value.get());
        EXPECT_EQ(CFArrayGetValueAtIndex(array.get(), 1), CFSTR("two"));
        const void* values[] = {CFSTR("one"), CFSTR("two")};
        const auto same = own(CFArrayCreate(nullptr, values, 2, &kCFTypeArrayCallBacks));
        EXPECT_TRUE(CFEqual(array.get(), same.get()));
        EXPECT_EQ(CFHash(array.get()), CFHash(same.get()));
        const auto shorter = own(CFArrayCreate(nullptr, values, 1, &kCFTypeArrayCallBacks));
        EXPECT_FALSE(CFEqual(array.get(), shorter.get()));
    }
    EXPECT_EQ(CFGetRetainCount(value.get()), 1);
    EXPECT_EQ(CFArrayCreate(nullptr, nullptr, -1, nullptr), nullptr);
}

TEST(CFArray, BrokenCallsEndTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const void* values[] = {CFSTR("one")};
    const auto array = own(
        const_cast<CFMutableArrayRef>(CFArrayCreate(nullptr, values, 1, &kCFTypeArrayCallBacks)));
    EXPECT_DEATH(CFArrayGetValueAtIndex(array.get(), 1), "CFArrayGetValueAtIndex");
    EXPECT_DEATH(CFArrayGetValueAtIndex(array.get(), -1), "CFArrayGetValueAtIndex");
    EXPECT_DEATH(CFArrayAppendValue(array.get(), CFSTR("two")), "CFArrayAppendValue");
}

}  // namespace
