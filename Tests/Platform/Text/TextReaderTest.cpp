#include "Platform/Text/TextReader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

TEST(TextReader, ReadsPlainTextInUtf8AndMarkedUtf16) {
    struct Row {
        const char* name;
        std::string_view bytes;
        std::u16string want;
    };
    const Row rows[] = {
        {"empty", ""sv, u""},
        {"ASCII with every line end", "a\nb\r\nc\rd\te\f"sv, u"a\nb\r\nc\rd\te\f"},
        {"UTF-8", "caf\xC3\xA9 \xF0\x9F\x98\x80"sv, u"caf\u00E9 \U0001F600"},
        {"UTF-8 with a mark",
         "\xEF\xBB\xBF"
         "a"sv,
         u"a"},
        {"only a mark", "\xEF\xBB\xBF"sv, u""},
        {"a mark inside is a character", "a\xEF\xBB\xBF"sv, u"a\uFEFF"},
        {"UTF-16, little end first", "\xFF\xFEz\0\xE9\0"sv, u"z\u00E9"},
        {"UTF-16, big end first", "\xFE\xFF\0z\0\xE9"sv, u"z\u00E9"},
        {"UTF-16 with a lone surrogate", "\xFF\xFE\x3D\xD8"sv, std::u16string{0xD83D}},
        {"markup is text", "<?xml version=\"1.0\"?>"sv, u"<?xml version=\"1.0\"?>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto text = attributedStringFromData(Data::copyOf(row.bytes));
        ASSERT_TRUE(text) << text.fault().detail;
        EXPECT_EQ(text.value().string(), row.want);
    }
}

TEST(TextReader, RefusesWhatIsNoText) {
    struct Row {
        const char* name;
        std::string_view bytes;
        const char* detail;
    };
    constexpr Row kRows[] = {
        {"other encodings", "caf\xE9"sv, "text that is not UTF-8"},
        {"NUL", "abc\0def"sv, "no text: control character at position 3"},
        {"control characters", "abc\x01"sv, "no text: control character at position 3"},
        {"half a unit", "\xFF\xFEz"sv, "UTF-16 text that ends inside a unit"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto text = attributedStringFromData(Data::copyOf(row.bytes));
        ASSERT_FALSE(text);
        EXPECT_EQ(text.fault().detail, row.detail);
    }
}

}  // namespace
}  // namespace platform
