// Dictionaries that share their keys, and the archives that they come from.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/DictionaryKeys.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/Value.h"
#include "Tools/samples/ArchiveBuilder.h"

namespace platform {
namespace {

using samples::ArchiveBuilder;

TEST(SharedKeys, StayAsTheyAreWhenOneDictionaryGrows) {
    const SharedKeys keys = DictionaryKeys::shared({"a", "b"});
    Dictionary first(keys, {Value(1), Value(2)});
    const Dictionary second(keys, {Value(3), Value(4)});
    Dictionary copy = second;
    first.set("c", Value(5));
    copy.set("b", Value(6));
    EXPECT_EQ(first, (Dictionary{{"a", Value(1)}, {"b", Value(2)}, {"c", Value(5)}}));
    EXPECT_EQ(second, (Dictionary{{"a", Value(3)}, {"b", Value(4)}}));
    EXPECT_EQ(copy, (Dictionary{{"b", Value(6)}, {"a", Value(3)}}));
    EXPECT_EQ(keys->size(), 2u);
}

TEST(SharedKeys, ADictionaryThatOwnsItsKeysSharesThemWithNoCopy) {
    Dictionary original{{"a", Value(1)}};
    const Dictionary copy = original;
    original.set("b", Value(2));
    EXPECT_EQ(copy, (Dictionary{{"a", Value(1)}}));
    EXPECT_EQ(original.size(), 2u);
}

TEST(SharedKeys, AreNoneWhenAKeyOccursTwice) {
    EXPECT_EQ(DictionaryKeys::shared({"a", "b", "a"}), nullptr);
    EXPECT_NE(DictionaryKeys::shared({}), nullptr);
}

TEST(SharedKeys, GiveEntriesInTheirOrder) {
    const Dictionary dictionary(DictionaryKeys::shared({"z", "a"}), {Value(1), Value(2)});
    std::vector<std::pair<std::string, Value>> entries;
    for (const auto& [key, value] : dictionary.entries()) {
        entries.emplace_back(key, value);
    }
    EXPECT_EQ(entries,
              (std::vector<std::pair<std::string, Value>>{{"z", Value(1)}, {"a", Value(2)}}));
}

/// Builds dictionaries by references, all of one class.
class DictionaryBuilder {
public:
    explicit DictionaryBuilder(ArchiveBuilder& archive)
        : archive_(archive), type_(archive.addClass({"NSDictionary", "NSObject"})) {}

    Uid add(const std::vector<Uid>& keys, const std::vector<Uid>& values) {
        return archive_.addInstance(type_,
                                    {{"NS.keys", Value(Array(keys.begin(), keys.end()))},
                                     {"NS.objects", Value(Array(values.begin(), values.end()))}});
    }

private:
    ArchiveBuilder& archive_;
    Uid type_;
};

Value decode(const Data& archive) {
    return KeyedUnarchiver::initForReadingWithData(archive)->decodeObject();
}

TEST(SharedKeys, OfMoreListsThanAreKeptAreNeverConfused) {
    constexpr std::size_t kLists = 200;
    ArchiveBuilder archive;
    DictionaryBuilder dictionaries(archive);
    std::vector<Uid> keys;
    for (std::size_t i = 0; i < kLists + 2; ++i) {
        keys.push_back(archive.add(Value::fromUtf8("key" + std::to_string(i))));
    }
    std::vector<Uid> elements;
    Array wanted;
    for (std::size_t i = 0; i < 3 * kLists; ++i) {
        // Lists of the same first and last key, of other lengths, and in another order.
        const std::size_t n = i % kLists;
        const std::vector<Uid> list = n % 2 == 0
                                          ? std::vector<Uid>{keys[0], keys[n + 1], keys[kLists + 1]}
                                          : std::vector<Uid>{keys[n], keys[0]};
        std::vector<Uid> values;
        Dictionary dictionary;
        for (const Uid key : list) {
            const auto number = static_cast<std::int64_t>(10 * i + values.size());
            values.push_back(archive.add(Value(number)));
            const auto name = std::find(keys.begin(), keys.end(), key) - keys.begin();
            dictionary.set("key" + std::to_string(name), Value(number));
        }
        elements.push_back(dictionaries.add(list, values));
        wanted.emplace_back(std::move(dictionary));
    }
    EXPECT_EQ(decode(archive.finish(archive.addArray(elements))), Value(wanted));
}

TEST(SharedKeys, OddListsAreReadTheLongWay) {
    ArchiveBuilder archive;
    DictionaryBuilder dictionaries(archive);
    const Uid a = archive.add(u"a");
    const Uid one = archive.add(Value(1));
    const Uid two = archive.add(Value(2));
    const Uid mutableKey =
        archive.addInstance(archive.addClass({"NSMutableString", "NSString", "NSObject"}),
                            {{"NS.string", Value(u"b")}});
    std::vector<Uid> manyKeys;
    std::vector<Uid> manyValues;
    Dictionary many;
    for (int i = 0; i < 40; ++i) {
        manyKeys.push_back(archive.add(Value::fromUtf8("k" + std::to_string(i))));
        manyValues.push_back(archive.add(Value(i)));
        many.set("k" + std::to_string(i), Value(i));
    }
    struct Row {
        const char* name;
        Uid dictionary;
        Dictionary want;
    };
    const Row rows[] = {
        {"no keys", dictionaries.add({}, {}), {}},
        {"the last of equal keys counts", dictionaries.add({a, a}, {one, two}), {{"a", Value(2)}}},
        {"a key of a class of strings",
         dictionaries.add({a, mutableKey}, {one, two}),
         {{"a", Value(1)}, {"b", Value(2)}}},
        {"many keys", dictionaries.add(manyKeys, manyValues), many},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(decode(archive.finish(row.dictionary)), Value(row.want));
        // The same once more, when its keys could have been kept.
        EXPECT_EQ(decode(archive.finish(archive.addArray({row.dictionary, row.dictionary}))),
                  Value(Array{Value(row.want), Value(row.want)}));
    }
}

TEST(SharedKeys, AKeyThatIsNoStringLeavesTheDictionaryOpaque) {
    ArchiveBuilder archive;
    DictionaryBuilder dictionaries(archive);
    const Uid number = archive.add(Value(1));
    const Uid root = archive.addArray(
        {dictionaries.add({number}, {number}), dictionaries.add({number}, {number})});
    const Value array = decode(archive.finish(root));
    ASSERT_EQ(array.array()->size(), 2u);
    for (const Value& element : *array.array()) {
        EXPECT_EQ(element.kind(), ValueKind::Object);
    }
}

}  // namespace
}  // namespace platform
