#include "Platform/Text/CharacterSet.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

namespace platform {
namespace {

TEST(CharacterSet, WhiteSpaceAndNewlinesAreTheseAndNoOthers) {
    const std::set<unsigned> members = {
        0x09,   0x0A,   0x0B,   0x0C,   0x0D,   0x20,   0x85,   0xA0,   0x1680,
        0x2000, 0x2001, 0x2002, 0x2003, 0x2004, 0x2005, 0x2006, 0x2007, 0x2008,
        0x2009, 0x200A, 0x200B, 0x2028, 0x2029, 0x202F, 0x205F, 0x3000,
    };
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        EXPECT_EQ(isWhitespaceOrNewline(static_cast<char16_t>(unit)), members.contains(unit))
            << std::hex << unit;
    }
}

TEST(CharacterSet, LettersAreLettersAndMarksOfAllScripts) {
    constexpr std::u32string_view kLetters =
        U"azAZ\u00E9\u01C5\u0301\u05D0\u0E31\u6BCE\uAC00\U0001D400\U0002F800";
    for (const char32_t letter : kLetters) {
        EXPECT_TRUE(isLetter(letter)) << std::hex << static_cast<unsigned>(letter);
    }
    constexpr std::u32string_view kOthers = U"0-_@[`{ \u00B2\u00D7\u2160\u3000\uFFFC\U0001F600";
    for (const char32_t other : kOthers) {
        EXPECT_FALSE(isLetter(other)) << std::hex << static_cast<unsigned>(other);
    }
    EXPECT_FALSE(isLetter(0xD800));
    EXPECT_FALSE(isLetter(0x110000));
}

TEST(CharacterSet, TrimmingTakesWhiteSpaceFromBothEnds) {
    struct Row {
        std::u16string_view text;
        std::u16string_view want;
    };
    constexpr Row kRows[] = {
        {u"", u""},         {u" \t\r\n\u3000\u200B", u""}, {u"a", u"a"}, {u" a b\u2029", u"a b"},
        {u"\u00A0a", u"a"}, {u"\uFEFF a", u"\uFEFF a"},
    };
    for (const Row& row : kRows) {
        const std::u16string_view trimmed = stringByTrimmingWhitespaceAndNewlines(row.text);
        EXPECT_EQ(trimmed, row.want);
        EXPECT_GE(trimmed.data(), row.text.data()) << "a part of the text";
        EXPECT_LE(trimmed.data() + trimmed.size(), row.text.data() + row.text.size());
    }
    constexpr std::u16string_view kBlank = u"  ";
    EXPECT_EQ(stringByTrimmingWhitespaceAndNewlines(kBlank).data(), kBlank.data());
}

}  // namespace
}  // namespace platform
