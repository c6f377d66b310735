#include "Platform/Foundation/Unicode.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace platform {
namespace {

using namespace std::string_view_literals;

TEST(Unicode, ConvertsValidTextBothWays) {
    struct Row {
        const char* name;
        std::string_view utf8;
        std::u16string_view utf16;
    };
    constexpr Row kRows[] = {
        {"empty", "", u""},
        {"ASCII longer than a machine word", "plain words, eight at a time",
         u"plain words, eight at a time"},
        {"two bytes between ASCII", "caf\xC3\xA9 noir", u"caf\u00E9 noir"},
        {"three bytes", "\xE6\x97\xA5", u"\u65E5"},
        {"surrogate pair", "a\xF0\x9F\x98\x80z", u"a\U0001F600z"},
        {"NUL stays", "a\0b"sv, u"a\0b"sv},
        {"largest code point", "\xF4\x8F\xBF\xBF", u"\U0010FFFF"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(utf16FromUtf8(row.utf8), row.utf16);
        EXPECT_EQ(utf16FromUtf8Lossy(row.utf8), row.utf16);
        EXPECT_EQ(utf8FromUtf16(row.utf16), row.utf8);
    }
}

TEST(Unicode, InvalidUtf8IsRefusedOrReplacedByteByByte) {
    struct Row {
        const char* name;
        std::string_view utf8;
        std::u16string_view lossy;
    };
    constexpr Row kRows[] = {
        {"lone continuation", "a\x80z", u"a\uFFFDz"},
        {"overlong slash", "\xC0\xAF", u"\uFFFD\uFFFD"},
        {"overlong three bytes", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
        {"encoded surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"above the last code point", "\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"cut off", "ab\xE6\x97", u"ab\uFFFD\uFFFD"},
        {"form broken by a letter", "\xE6\x97z", u"\uFFFD\uFFFDz"},
        {"bytes that never occur", "\xFE\xFF", u"\uFFFD\uFFFD"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(utf16FromUtf8(row.utf8), std::nullopt);
        EXPECT_EQ(utf16FromUtf8Lossy(row.utf8), row.lossy);
    }
}

TEST(Unicode, FormsHaveALengthUnlessTheyAreInvalid) {
    EXPECT_EQ(utf8FormLength(""), 0u);
    EXPECT_EQ(utf8FormLength("\0"sv), 1u);
    EXPECT_EQ(utf8FormLength("ab"), 1u);
    EXPECT_EQ(utf8FormLength("\xC3\xA9z"), 2u);
    EXPECT_EQ(utf8FormLength("\xE6\x97\xA5"), 3u);
    EXPECT_EQ(utf8FormLength("\xF0\x9F\x98\x80"), 4u);
    EXPECT_EQ(utf8FormLength("\xE6\x97"), 0u);
    EXPECT_EQ(utf8FormLength("\x80"), 0u);
    EXPECT_EQ(utf8FormLength("\xC0\xAF"), 0u);
}

TEST(Unicode, LoneSurrogatesBecomeReplacementCharacters) {
    const std::u16string high = {u'a', 0xD83D, u'z'};
    const std::u16string low = {0xDE00, 0xD83D};
    EXPECT_EQ(utf8FromUtf16(high), "a\xEF\xBF\xBDz");
    EXPECT_EQ(utf8FromUtf16(low), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Unicode, EveryCodePointGoesThereAndBack) {
    for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 37) {
        if (c >= 0xD800 && c <= 0xDFFF) {
            continue;
        }
        std::string utf8;
        appendUtf8(utf8, c);
        const auto utf16 = utf16FromUtf8(utf8);
        ASSERT_TRUE(utf16) << static_cast<unsigned long>(c);
        ASSERT_EQ(utf8FromUtf16(*utf16), utf8) << static_cast<unsigned long>(c);
    }
}

}  // namespace
}  // namespace platform
