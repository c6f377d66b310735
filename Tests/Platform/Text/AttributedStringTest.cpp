#include "Platform/Text/AttributedString.h"

#include <gtest/gtest.h>

#include "Platform/Foundation/Exception.h"
#include "Platform/Text/TextStorage.h"

namespace platform {
namespace {

Attributes attributes(int size) {
    return std::make_shared<const Dictionary>(Dictionary{{"Size", Value(size)}});
}

TEST(AttributedString, RunsCoverTheWholeText) {
    const auto text = std::make_shared<const std::u16string>(u"0123456789");
    const Attributes ten = attributes(10);
    const AttributedString string(text, {{2, ten}, {3, nullptr}});
    ASSERT_EQ(string.runs().size(), 3u);
    EXPECT_EQ(string.runs()[2].length, 5u);
    EXPECT_EQ(string.runs()[2].attributes, nullptr);
    EXPECT_EQ(&string.string(), text.get()) << "the characters are shared, not copied";
}

TEST(AttributedString, AttributesAtIndexComeWithTheirRun) {
    const Attributes ten = attributes(10);
    const Attributes twelve = attributes(12);
    const AttributedString string(std::make_shared<const std::u16string>(u"0123456789"),
                                  {{2, ten}, {3, nullptr}, {5, twelve}});
    struct Row {
        std::uint64_t index;
        Attributes want;
        Range range;
    };
    const Row rows[] = {{0, ten, {0, 2}},     {1, ten, {0, 2}},    {2, nullptr, {2, 3}},
                        {4, nullptr, {2, 3}}, {5, twelve, {5, 5}}, {9, twelve, {5, 5}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.index);
        Range range;
        EXPECT_EQ(string.attributesAtIndex(row.index, &range), row.want);
        EXPECT_EQ(range, row.range);
    }
    EXPECT_THROW((void)string.attributesAtIndex(10), RangeException);
    EXPECT_THROW((void)AttributedString().attributesAtIndex(0), RangeException);
}

TEST(AttributedString, PlainTextIsOneRunAndEmptyTextNone) {
    EXPECT_EQ(AttributedString(u"abc").runs().size(), 1u);
    EXPECT_TRUE(AttributedString(u"").runs().empty());
    EXPECT_TRUE(TextStorage().string().empty());
}

}  // namespace
}  // namespace platform
