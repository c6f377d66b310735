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
        {"UTF-16 with half a unit at its end", "\xFF\xFEz\0y"sv, u"z\uFFFD"},
        {"half a unit of UTF-16", "\xFE\xFFz"sv, u"\uFFFD"},
        {"UTF-32, little end first", "\xFF\xFE\0\0z\0\0\0\x00\xF6\x01\0"sv, u"z\U0001F600"},
        {"UTF-32, big end first", "\0\0\xFE\xFF\0\0\0z\0\x10\xFF\xFF"sv, u"z\U0010FFFF"},
        {"only a mark of UTF-32", "\xFF\xFE\0\0"sv, u""},
        {"UTF-32 that no character has",
         "\0\0\xFE\xFF\0\0\xD8\x00\0\x11\0\0\xFF\xFF\xFF\xFF\0\0\0z"sv, u"\uFFFD\uFFFD\uFFFDz"},
        {"UTF-32 with a part of a unit at its end", "\0\0\xFE\xFF\0\0\0z\0\0\0"sv, u"z\uFFFD"},
        {"RTF", "{\\rtf1 words\\par}"sv, u"words\n"},
        {"RTF with a mark",
         "\xEF\xBB\xBF"
         "{\\rtf1 words}"sv,
         u"words"},
        {"PDF's name inside", " %PDF-"sv, u" %PDF-"},
        {"RTF's start cut off", "{\\rt"sv, u"{\\rt"},
        {"a word that begins as RTFD does", "rtfd files"sv, u"rtfd files"},
        {"HTML inside", "see <html>"sv, u"see <html>"},
        {"HTML's start cut off", "<htm"sv, u"<htm"},
        {"another document type", "<!DOCTYPE plist>"sv, u"<!DOCTYPE plist>"},
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
        {"NUL in a short text", "abc\0def"sv, "no text: 1 control characters among 7 units"},
        {"UTF-16 without a mark", "a\0b\0c\0"sv, "no text: 3 control characters among 6 units"},
        {"UTF-32 without a mark", "\0\0\0a\0\0\0b"sv,
         "no text: 6 control characters among 8 units"},
        {"PDF", "%PDF-1.7\n"sv, "PDF is not read yet"},
        {"flat RTFD", "rtfd\0\0\0\0\3\0\0\0"sv, "RTFD is not read yet"},
        {"HTML", "<html>"sv, "HTML is not read yet"},
        {"HTML with a document type", "<!DOCTYPE HTML PUBLIC>"sv, "HTML is not read yet"},
        {"HTML after a mark and white space", "\xEF\xBB\xBF \t\r\n<!DocType Html>"sv,
         "HTML is not read yet"},
        {"HTML in another encoding", "<HTML lang=fr>caf\xE9"sv, "HTML is not read yet"},
        {"HTML in UTF-16", "\xFF\xFE\n\0<\0h\0t\0M\0l\0>\0"sv, "HTML is not read yet"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto text = attributedStringFromData(Data::copyOf(row.bytes));
        ASSERT_FALSE(text);
        EXPECT_EQ(text.fault().code, FaultCode::Unsupported);
        EXPECT_EQ(text.fault().detail, row.detail);
    }
}

std::string littleEndianWithMark(std::u16string_view text, int width) {
    std::string bytes("\xFF\xFE\0\0", static_cast<std::size_t>(width));
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit);
        bytes += static_cast<char>(unit >> 8);
        bytes.append(static_cast<std::size_t>(width - 2), '\0');
    }
    return bytes;
}

TEST(TextReader, OneControlCharacterInAHundredIsKept) {
    struct Row {
        const char* name;
        char16_t control;
        std::size_t controls;
        std::size_t units;
        bool isText;
    };
    constexpr Row kRows[] = {
        {"one NUL in 100", 0, 1, 100, true},
        {"one NUL in 99", 0, 1, 99, false},
        {"two in 199", 1, 2, 199, false},
        {"two in 200", 0, 2, 200, true},
        {"ten in 1000", 0x1F, 10, 1000, true},
        {"eleven in 1000", 0x1F, 11, 1000, false},
        {"nothing but tabs", u'\t', 5, 5, true},
        {"nothing but form feeds", u'\f', 5, 5, true},
        {"nothing but escapes", 0x1B, 5, 5, true},
        {"nothing but ends of old files", 0x1A, 5, 5, true},
        {"nothing but NUL", 0, 5, 5, false},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        // At the end: a NUL behind the mark of UTF-16 would make it that of UTF-32.
        const std::u16string want = std::u16string(row.units - row.controls, u'x') +
                                    std::u16string(row.controls, row.control);
        for (const std::string& bytes :
             {std::string(want.begin(), want.end()), littleEndianWithMark(want, 2),
              littleEndianWithMark(want, 4)}) {
            const auto text = attributedStringFromData(Data::copyOf(bytes));
            ASSERT_EQ(static_cast<bool>(text), row.isText);
            if (row.isText) {
                EXPECT_EQ(text.value().string(), want);
            }
        }
    }
}

}  // namespace
}  // namespace platform
