#include "Platform/Foundation/WideText.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

using namespace std::string_view_literals;

TEST(WideText, MarkedBytesAreDecoded) {
    struct Row {
        const char* name;
        std::string_view bytes;
        std::optional<std::u16string> want;
    };
    const Row rows[] = {
        {"empty", "", std::nullopt},
        {"no mark", "\0a\0b"sv, std::nullopt},
        {"UTF-8",
         "\xEF\xBB\xBF"
         "a",
         std::nullopt},
        {"half a mark", "\xFF", std::nullopt},
        {"big-endian", "\xFE\xFF\0a\x20\xAC"sv, u"a\u20AC"},
        {"little-endian",
         "\xFF\xFE"
         "a\0\xAC\x20"sv,
         u"a\u20AC"},
        {"mark alone", "\xFF\xFE", u""},
        {"pair", "\xFE\xFF\xD8\x3D\xDE\x00"sv, u"\U0001F600"},
        {"lone surrogate stays", "\xFE\xFF\xD8\x3D"sv, std::u16string(1, 0xD83D)},
        {"odd byte", "\xFE\xFF\0a\0"sv, u"a\uFFFD"},
        {"UTF-32, big-endian", "\0\0\xFE\xFF\0\1\xF6\0"sv, u"\U0001F600"},
        {"UTF-32, little-endian", "\xFF\xFE\0\0\xAC\x20\0\0"sv, u"\u20AC"},
        {"UTF-32, surrogate", "\0\0\xFE\xFF\0\0\xD8\x3D"sv, u"\uFFFD"},
        {"UTF-32, too large", "\0\0\xFE\xFF\0\x11\0\0"sv, u"\uFFFD"},
        {"UTF-32, part of a unit", "\0\0\xFE\xFF\0\0\0"sv, u"\uFFFD"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(utf16FromMarkedBytes(row.bytes), row.want);
    }
}

TEST(WideText, BigEndianUnitsNeedNoMark) {
    EXPECT_EQ(utf16FromBigEndianUtf16("\0a\x20\xAC"sv), u"a\u20AC");
    EXPECT_EQ(utf16FromBigEndianUtf16(""), u"");
    EXPECT_EQ(utf16FromBigEndianUtf16("\0"sv), u"\uFFFD");
}

}  // namespace
}  // namespace platform
