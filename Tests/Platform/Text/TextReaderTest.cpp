#include "Platform/Text/TextReader.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

TEST(TextReader, ReadsEachFormat) {
    struct Row {
        const char* name;
        std::string_view bytes;
        std::u16string want;
    };
    const Row rows[] = {
        {"empty", ""sv, u""},
        {"UTF-8", "caf\xC3\xA9"sv, u"café"},
        {"windows-1252", "caf\xE9"sv, u"café"},
        {"UTF-16 with a mark", "\xFF\xFEz\0\xE9\0"sv, u"zé"},
        {"UTF-16 without a mark", "a\0b\0c\0"sv, u"abc"},
        {"UTF-32 without a mark", "\0\0\0a\0\0\0b"sv, u"ab"},
        {"RTF", "{\\rtf1 words\\par}"sv, u"words\n"},
        {"RTF behind a mark and white space", "\xEF\xBB\xBF\n {\\rtf1 words}"sv, u"words"},
        {"HTML", "<html><p>words"sv, u"words\n"},
        {"a piece of a page is text", "<p>words"sv, u"<p>words"},
        {"markup is text", "<?xml version=\"1.0\"?>"sv, u"<?xml version=\"1.0\"?>"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto text = attributedStringFromData(Data::copyOf(row.bytes));
        ASSERT_TRUE(text) << text.fault().detail;
        EXPECT_EQ(text.value().string(), row.want);
    }
}

TEST(TextReader, ReadsWhatBeginsAsNothingKnownAsIsExpected) {
    struct Row {
        const char* name;
        std::string_view bytes;
        std::u16string want;
    };
    const Row rows[] = {
        {"a piece of a page", "<p>words"sv, u"words\n"},
        {"no markup", "a &lt; b"sv, u"a < b"},
        {"RTF all the same", "{\\rtf1 words}"sv, u"words"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto text = attributedStringFromData(Data::copyOf(row.bytes), TextFormat::Html);
        ASSERT_TRUE(text) << text.fault().detail;
        EXPECT_EQ(text.value().string(), row.want);
    }
}

TEST(TextReader, RefusesWhatItCannotReadByItsName) {
    struct Row {
        const char* name;
        std::string_view bytes;
        const char* detail;
    };
    constexpr Row kRows[] = {
        {"PDF", "%PDF-1.7\n"sv, "no text: PDF"},
        {"a picture", "\x89PNG\r\n\x1A\n"sv, "no text: a PNG picture"},
        {"control characters", "\1\2\3\4"sv, "no text: 4 control characters among 4 units"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto text = attributedStringFromData(Data::copyOf(row.bytes));
        ASSERT_FALSE(text);
        EXPECT_EQ(text.fault().code, FaultCode::Unsupported);
        EXPECT_EQ(text.fault().detail, row.detail);
    }
}

}  // namespace
}  // namespace platform
