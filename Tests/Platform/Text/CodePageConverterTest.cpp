#include "Platform/Text/CodePageConverter.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

struct Row {
    const char* name;
    const char* codePage;
    std::string_view bytes;
    std::u16string_view want;
    std::size_t replaced;
};
constexpr Row kRows[] = {
    {"nothing", "windows-932", ""sv, u""sv, 0},
    {"ASCII", "windows-949", "a\\b"sv, u"a\\b"sv, 0},
    {"Japanese in Windows", "windows-932", "\x93\xFA\x96\x7B\xB1"sv, u"\u65E5\u672C\uFF71"sv, 0},
    {"a second byte that is a brace or a backslash", "windows-932", "\x83\x7D\x83\x7B\x83\x5C"sv,
     u"\u30DE\u30DC\u30BD"sv, 0},
    {"simplified Chinese", "windows-936", "\xD6\xD0\xCE\xC4"sv, u"\u4E2D\u6587"sv, 0},
    {"Korean", "windows-949", "\xC7\xD1\xB1\xDB"sv, u"\uD55C\uAE00"sv, 0},
    {"traditional Chinese", "windows-950", "\xA4\xA4\xA4\xE5"sv, u"\u4E2D\u6587"sv, 0},
    {"four bytes", "gb18030", "\x95\x32\x82\x36"sv, u"\U00020000"sv, 0},
    {"three bytes", "euc-jp", "\x8F\xB0\xA1"sv, u"\u4E02"sv, 0},
    {"a second byte that is none", "windows-932", "\x93\x20z"sv, u"\uFFFD z"sv, 1},
    {"a character cut off", "windows-936", "a\xD6"sv, u"a\uFFFD"sv, 1},
    {"two bytes that no character has", "windows-932", "\x82\xFCz"sv, u"\uFFFDz"sv, 1},
};

TEST(CodePageConverter, ConvertsWholeTexts) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto converter = CodePageConverter::converterNamed(row.codePage);
        ASSERT_NE(converter, nullptr);
        std::u16string text = u">";
        EXPECT_EQ(converter->append(text, row.bytes), row.replaced);
        EXPECT_EQ(text, u">" + std::u16string(row.want));
    }
}

TEST(CodePageConverter, ConvertsPiecesThatEndInsideCharacters) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto converter = CodePageConverter::converterNamed(row.codePage);
        ASSERT_NE(converter, nullptr);
        std::u16string text;
        std::size_t replaced = 0;
        for (const char& byte : row.bytes) {
            replaced += converter->append(text, {&byte, 1}, BytesFollow::Yes);
        }
        replaced += converter->append(text, {});
        EXPECT_EQ(text, row.want);
        EXPECT_EQ(replaced, row.replaced);
    }
}

TEST(CodePageConverter, ConvertsTextsOfAnyLength) {
    const auto converter = CodePageConverter::converterNamed("windows-932");
    std::string bytes;
    std::u16string want;
    for (int i = 0; i < 5000; ++i) {
        bytes += i % 7 == 0 ? "x" : "\x93\xFA";
        want += i % 7 == 0 ? u"x" : u"\u65E5";
    }
    std::u16string text;
    EXPECT_EQ(converter->append(text, bytes), 0U);
    EXPECT_EQ(text, want);
}

TEST(CodePageConverter, StartsAnewAfterTheLastBytes) {
    const auto converter = CodePageConverter::converterNamed("windows-932");
    std::u16string text;
    converter->append(text, "\x93");
    converter->append(text, "\xFA!");
    EXPECT_EQ(text, u"\uFFFD\uFFFD!");
}

TEST(CodePageConverter, ThatIsNotKnownIsNull) {
    EXPECT_EQ(CodePageConverter::converterNamed("no such code page"), nullptr);
}

}  // namespace
}  // namespace platform
