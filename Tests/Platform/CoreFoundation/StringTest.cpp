#include "Platform/CoreFoundation/CFString.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

#include "Tests/Platform/CoreFoundation/Ref.h"

namespace {

using namespace std::string_view_literals;
using test::makeString;
using test::own;
using test::unitsOf;

struct DecodingRow {
    const char* name;
    std::string_view bytes;
    CFStringEncoding encoding;
    bool external;
    bool valid;
    std::u16string_view units;
};

constexpr DecodingRow kDecodingRows[] = {
    {"nothing", "", kCFStringEncodingUTF8, false, true, u""},
    {"ASCII", "abc", kCFStringEncodingUTF8, false, true, u"abc"},
    {"two, three and four bytes", "\u00E9\u20AC\U0001F600", kCFStringEncodingUTF8, false, true,
     u"\u00E9\u20AC\U0001F600"},
    {"NUL stays", "a\0b"sv, kCFStringEncodingUTF8, false, true, u"a\0b"sv},
    {"U+FFFE stays", "\xEF\xBF\xBE", kCFStringEncodingUTF8, false, true, u"\uFFFE"},
    {"last code point", "\xF4\x8F\xBF\xBF", kCFStringEncodingUTF8, false, true, u"\U0010FFFF"},
    {"leading mark dropped", "\xEF\xBB\xBFx", kCFStringEncodingUTF8, false, true, u"x"},
    {"leading mark dropped, external", "\xEF\xBB\xBFx", kCFStringEncodingUTF8, true, true, u"x"},
    {"only one mark dropped", "\xEF\xBB\xBF\xEF\xBB\xBF", kCFStringEncodingUTF8, false, true,
     u"\uFEFF"},
    {"mark inside stays", "x\xEF\xBB\xBF", kCFStringEncodingUTF8, false, true, u"x\uFEFF"},
    {"stray continuation", "a\x80", kCFStringEncodingUTF8, false, false, u""},
    {"truncated two", "a\xC3", kCFStringEncodingUTF8, false, false, u""},
    {"truncated three", "\xE2\x82", kCFStringEncodingUTF8, false, false, u""},
    {"truncated four", "\xF0\x9F\x98", kCFStringEncodingUTF8, false, false, u""},
    {"broken in the middle", "\xE2(\xAC", kCFStringEncodingUTF8, false, false, u""},
    {"overlong slash", "\xC0\xAF", kCFStringEncodingUTF8, false, false, u""},
    {"overlong three", "\xE0\x82\xAC", kCFStringEncodingUTF8, false, false, u""},
    {"overlong four", "\xF0\x82\x82\xAC", kCFStringEncodingUTF8, false, false, u""},
    {"encoded surrogate", "\xED\xA0\x80", kCFStringEncodingUTF8, false, false, u""},
    {"above the last code point", "\xF4\x90\x80\x80", kCFStringEncodingUTF8, false, false, u""},
    {"no lead byte", "\xFF", kCFStringEncodingUTF8, false, false, u""},
    {"invalid after a long run", "0123456789abcdef\xFF", kCFStringEncodingUTF8, false, false, u""},
    {"ASCII as such", "abc", kCFStringEncodingASCII, false, true, u"abc"},
    {"no ASCII", "caf\xC3\xA9", kCFStringEncodingASCII, false, false, u""},
    {"UTF-16 little endian", "a\0\xAC\x20"sv, kCFStringEncodingUTF16LE, false, true, u"a\u20AC"},
    {"UTF-16 big endian", "\0a\x20\xAC"sv, kCFStringEncodingUTF16BE, false, true, u"a\u20AC"},
    {"UTF-16 mark, little endian", "\xFF\xFE\xAC\x20"sv, kCFStringEncodingUTF16, true, true,
     u"\u20AC"},
    {"UTF-16 mark, big endian", "\xFE\xFF\x20\xAC"sv, kCFStringEncodingUTF16, true, true,
     u"\u20AC"},
    {"UTF-16 without mark from outside", "\x20\xAC"sv, kCFStringEncodingUTF16, true, true,
     u"\u20AC"},
    {"half a unit", "a\0b"sv, kCFStringEncodingUTF16LE, false, false, u""},
    {"unknown encoding", "abc", 0x0201, false, false, u""},
};

TEST(CFString, DecodesStrictly) {
    for (const DecodingRow& row : kDecodingRows) {
        SCOPED_TRACE(row.name);
        const auto string = own(CFStringCreateWithBytes(
            kCFAllocatorDefault, reinterpret_cast<const UInt8*>(row.bytes.data()),
            static_cast<CFIndex>(row.bytes.size()), row.encoding, row.external));
        ASSERT_EQ(string != nullptr, row.valid);
        if (string) {
            EXPECT_EQ(unitsOf(string.get()), row.units);
        }
    }
}

TEST(CFString, RefusesBytesThatAreNotThere) {
    const UInt8 byte = 'a';
    EXPECT_EQ(CFStringCreateWithBytes(nullptr, &byte, -1, kCFStringEncodingUTF8, false), nullptr);
    EXPECT_EQ(CFStringCreateWithBytes(nullptr, nullptr, 1, kCFStringEncodingUTF8, false), nullptr);
    EXPECT_EQ(CFStringCreateWithCharacters(nullptr, nullptr, 1), nullptr);
    EXPECT_EQ(CFStringCreateWithCString(nullptr, nullptr, kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "a", kCFStringEncodingUTF16), nullptr);
    const auto empty = own(CFStringCreateWithBytes(nullptr, nullptr, 0, kCFStringEncodingUTF8, 0));
    ASSERT_NE(empty, nullptr);
    EXPECT_EQ(CFStringGetLength(empty.get()), 0);
}

TEST(CFString, CStringsDropALeadingMarkAndUnitsKeepIt) {
    const auto text = own(CFStringCreateWithCString(nullptr, "\uFEFFa", kCFStringEncodingUTF8));
    EXPECT_EQ(unitsOf(text.get()), u"a");
    EXPECT_EQ(unitsOf(makeString(u"\uFEFFa"sv).get()), u"\uFEFFa");
    EXPECT_EQ(CFStringCreateWithCString(nullptr, "\xFF", kCFStringEncodingUTF8), nullptr);
}

struct WritingRow {
    const char* name;
    std::u16string_view units;
    CFStringEncoding encoding;
    CFIndex size;
    bool whole;
    std::string_view text;
};

constexpr char16_t kLoneSurrogate[] = {u'a', 0xD800, u'b'};

const WritingRow kCStringRows[] = {
    {"room for the NUL", u"abc", kCFStringEncodingUTF8, 4, true, "abc"},
    {"no room for the NUL", u"abc", kCFStringEncodingUTF8, 3, false, ""},
    {"no room at all", u"", kCFStringEncodingUTF8, 0, false, ""},
    {"empty", u"", kCFStringEncodingUTF8, 1, true, ""},
    {"three bytes a unit", u"\u20AC", kCFStringEncodingUTF8, 4, true, "\u20AC"},
    {"cut inside a character", u"\u20AC", kCFStringEncodingUTF8, 3, false, ""},
    {"pair", u"\U0001F600", kCFStringEncodingUTF8, 5, true, "\U0001F600"},
    {"lone surrogate", {kLoneSurrogate, 3}, kCFStringEncodingUTF8, 16, false, ""},
    {"not ASCII", u"caf\u00E9", kCFStringEncodingASCII, 16, false, ""},
    {"ASCII", u"cafe", kCFStringEncodingASCII, 16, true, "cafe"},
    {"no byte encoding", u"a", kCFStringEncodingUTF16, 16, false, ""},
};

TEST(CFString, WritesWholeCStringsOrNone) {
    for (const WritingRow& row : kCStringRows) {
        SCOPED_TRACE(row.name);
        const auto string = makeString(row.units);
        std::array<char, 16> buffer;
        buffer.fill('#');
        EXPECT_EQ(CFStringGetCString(string.get(), buffer.data(), row.size, row.encoding),
                  row.whole);
        if (row.size > 0) {
            EXPECT_EQ(std::string_view(buffer.data()), row.text);
        }
        for (auto i = static_cast<std::size_t>(row.size); i < buffer.size(); ++i) {
            EXPECT_EQ(buffer[i], '#') << "written beyond the buffer at " << i;
        }
    }
}

struct BytesRow {
    const char* name;
    std::u16string_view units;
    CFRange range;
    CFStringEncoding encoding;
    UInt8 lossByte;
    bool external;
    CFIndex room;
    CFIndex converted;
    std::string_view bytes;
};

const BytesRow kBytesRows[] = {
    {"a part", u"abcd", {1, 2}, kCFStringEncodingUTF8, 0, false, 9, 2, "bc"},
    {"what fits", u"abcd", {0, 4}, kCFStringEncodingUTF8, 0, false, 3, 3, "abc"},
    {"whole characters", u"a\u20AC", {0, 2}, kCFStringEncodingUTF8, 0, false, 3, 1, "a"},
    {"stops before a lone surrogate",
     {kLoneSurrogate, 3},
     {0, 3},
     kCFStringEncodingUTF8,
     0,
     false,
     9,
     1,
     "a"},
    {"or replaces it", {kLoneSurrogate, 3}, {0, 3}, kCFStringEncodingUTF8, '?', false, 9, 3, "a?b"},
    {"half a pair", u"\U0001F600", {0, 1}, kCFStringEncodingUTF8, 0, false, 9, 0, ""},
    {"a pair", u"\U0001F600", {0, 2}, kCFStringEncodingUTF8, 0, true, 9, 2, "\U0001F600"},
    {"not ASCII", u"a\u00E9", {0, 2}, kCFStringEncodingASCII, '?', false, 9, 2, "a?"},
    {"narrow as UTF-16", u"ab", {0, 2}, kCFStringEncodingUTF16BE, 0, false, 9, 2, "\0a\0b"sv},
    {"narrow as UTF-16, what fits",
     u"ab",
     {0, 2},
     kCFStringEncodingUTF16BE,
     0,
     false,
     3,
     1,
     "\0a"sv},
    {"wide as UTF-16", u"\u20AC", {0, 1}, kCFStringEncodingUTF16LE, 0, false, 9, 1, "\xAC\x20"},
    {"mark in front",
     u"a",
     {0, 1},
     kCFStringEncodingUTF16,
     0,
     true,
     9,
     1,
     "\xFF\xFE"
     "a\0"sv},
    {"no room for the mark", u"a", {0, 1}, kCFStringEncodingUTF16, 0, true, 1, 0, ""},
    {"unknown encoding", u"a", {0, 1}, 0x0201, '?', false, 9, 0, ""},
};

TEST(CFString, WritesAsManyBytesAsFit) {
    for (const BytesRow& row : kBytesRows) {
        SCOPED_TRACE(row.name);
        const auto string = makeString(row.units);
        std::array<UInt8, 9> buffer{};
        CFIndex used = -1;
        EXPECT_EQ(CFStringGetBytes(string.get(), row.range, row.encoding, row.lossByte,
                                   row.external, buffer.data(), row.room, &used),
                  row.converted);
        ASSERT_EQ(used, static_cast<CFIndex>(row.bytes.size()));
        EXPECT_EQ(std::string_view(reinterpret_cast<char*>(buffer.data()),
                                   static_cast<std::size_t>(used)),
                  row.bytes);
    }
}

TEST(CFString, CountsBytesWithoutABuffer) {
    CFIndex used = 0;
    const auto string = makeString("a\u20AC"sv);
    EXPECT_EQ(CFStringGetBytes(string.get(), CFRangeMake(0, 2), kCFStringEncodingUTF8, 0, false,
                               nullptr, 0, &used),
              2);
    EXPECT_EQ(used, 4);
}

TEST(CFString, KeepsUnitsOfEitherWidth) {
    const auto narrow = makeString("plain"sv);
    const auto wide = makeString(std::u16string_view(kLoneSurrogate, 3));
    EXPECT_EQ(CFStringGetCharacterAtIndex(narrow.get(), 4), u'n');
    EXPECT_EQ(CFStringGetCharacterAtIndex(wide.get(), 1), 0xD800);
    std::array<UniChar, 3> units{};
    CFStringGetCharacters(narrow.get(), CFRangeMake(1, 3), units.data());
    EXPECT_EQ(units, (std::array<UniChar, 3>{u'l', u'a', u'i'}));
}

TEST(CFString, ShowsItsCharactersOnlyWhenTheyAreTheWholeString) {
    EXPECT_STREQ(CFStringGetCStringPtr(makeString("abc"sv).get(), kCFStringEncodingUTF8), "abc");
    EXPECT_EQ(CFStringGetCStringPtr(makeString("caf\u00E9"sv).get(), kCFStringEncodingUTF8),
              nullptr);
    EXPECT_EQ(CFStringGetCStringPtr(makeString("a\0b"sv).get(), kCFStringEncodingUTF8), nullptr);
    EXPECT_EQ(CFStringGetCStringPtr(makeString("abc"sv).get(), kCFStringEncodingUTF16), nullptr);
}

TEST(CFString, BoundsSizesPerUnit) {
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(7, kCFStringEncodingUTF8), 21);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(7, kCFStringEncodingASCII), 7);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(7, kCFStringEncodingUTF16), 14);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(7, 0x0201), kCFNotFound);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(-1, kCFStringEncodingUTF8), kCFNotFound);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(0x7FFFFFFFFFFFFFFF, kCFStringEncodingUTF8),
              kCFNotFound);
}

TEST(CFString, PathsAreUtf8WithoutDecomposition) {
    std::array<char, 32> buffer{};
    const auto path = makeString("/tmp/caf\u00E9"sv);
    EXPECT_TRUE(CFStringGetFileSystemRepresentation(path.get(), buffer.data(), 11));
    EXPECT_STREQ(buffer.data(), "/tmp/caf\u00E9");
    EXPECT_FALSE(CFStringGetFileSystemRepresentation(path.get(), buffer.data(), 10));
    EXPECT_EQ(CFStringGetMaximumSizeOfFileSystemRepresentation(path.get()), 9 * 3 + 1);
    EXPECT_FALSE(
        CFStringGetFileSystemRepresentation(makeString("/a\0b"sv).get(), buffer.data(), 32))
        << "a path ends at its NUL, a string does not";
    EXPECT_EQ(makeString("/tmp/\xFF"sv), nullptr);
}

struct EqualityRow {
    const char* name;
    std::u16string_view first;
    std::u16string_view second;
    bool equal;
};

constexpr EqualityRow kEqualityRows[] = {
    {"same", u"abc", u"abc", true},
    {"same, beyond ASCII", u"caf\u00E9", u"caf\u00E9", true},
    {"case", u"abc", u"ABC", false},
    {"composed and decomposed", u"caf\u00E9", u"cafe\u0301", false},
    {"beginning", u"ab", u"abc", false},
    {"empty", u"", u"", true},
};

TEST(CFString, IsEqualUnitByUnit) {
    for (const EqualityRow& row : kEqualityRows) {
        SCOPED_TRACE(row.name);
        const auto first = makeString(row.first);
        const auto second = makeString(row.second);
        EXPECT_EQ(CFEqual(first.get(), second.get()), row.equal);
        if (row.equal) {
            EXPECT_EQ(CFHash(first.get()), CFHash(second.get()));
        }
    }
}

TEST(CFString, ACopyIsTheSameObject) {
    const auto string = makeString("abc"sv);
    const auto copy = own(CFStringCreateCopy(nullptr, string.get()));
    EXPECT_EQ(copy.get(), string.get());
    EXPECT_EQ(CFGetRetainCount(string.get()), 2);
}

TEST(CFString, ConstantsAreOneObjectForEachText) {
    const std::string text = "kMDItemTextContent";
    const CFStringRef constant = CFSTR("kMDItemTextContent");
    EXPECT_EQ(constant, __CFStringMakeConstantString(text.c_str()));
    EXPECT_NE(constant, CFSTR("kMDItemTitle"));
    EXPECT_TRUE(CFEqual(constant, makeString(text).get()));
    EXPECT_EQ(CFHash(constant), CFHash(makeString(text).get()));
    for (int i = 0; i < 3; ++i) {
        CFRelease(constant);
    }
    EXPECT_EQ(unitsOf(constant), u"kMDItemTextContent") << "a constant survives releases";
    EXPECT_EQ(unitsOf(__CFStringMakeConstantString("a\xE9")), u"a\uFFFD");
}

TEST(CFString, BrokenCallsEndTheProcess) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto string = makeString("abc"sv);
    UniChar unit = 0;
    EXPECT_DEATH(CFStringGetLength(nullptr), "CFStringGetLength");
    EXPECT_DEATH(CFStringGetLength(static_cast<CFStringRef>(CFTypeRef(kCFBooleanTrue))),
                 "CFStringGetLength");
    EXPECT_DEATH(CFStringGetCharacterAtIndex(string.get(), 3), "CFStringGetCharacterAtIndex");
    EXPECT_DEATH(CFStringGetCharacters(string.get(), CFRangeMake(3, 1), &unit),
                 "CFStringGetCharacters");
    EXPECT_DEATH(CFStringGetCharacters(string.get(), CFRangeMake(1, 0x7FFFFFFFFFFFFFFF), &unit),
                 "CFStringGetCharacters");
}

}  // namespace
