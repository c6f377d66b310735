#include "Platform/Text/PlainText.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/WideText.h"
#include "Platform/Text/BareWideText.h"

namespace platform {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::string wideBytes(std::u16string_view text, WideEncoding encoding) {
    const bool isUtf16 =
        encoding == WideEncoding::Utf16BigEndian || encoding == WideEncoding::Utf16LittleEndian;
    const bool isBig =
        encoding == WideEncoding::Utf16BigEndian || encoding == WideEncoding::Utf32BigEndian;
    std::string bytes;
    for (const char16_t unit : text) {
        const std::string pair = {static_cast<char>(isBig ? unit >> 8 : unit),
                                  static_cast<char>(isBig ? unit : unit >> 8)};
        const std::string zeros(isUtf16 ? 0 : 2, '\0');
        bytes += isBig ? zeros + pair : pair + zeros;
    }
    return bytes;
}

constexpr WideEncoding kWideEncodings[] = {
    WideEncoding::Utf16BigEndian, WideEncoding::Utf16LittleEndian, WideEncoding::Utf32BigEndian,
    WideEncoding::Utf32LittleEndian};

constexpr std::u16string_view kTexts[] = {
    u"The keeper of the lighthouse.\r\n",
    u"a",
    u"Größe",
    u"Смотритель маяка каждый вечер поднимался по лестнице.",
    u"Ο φαροφύλακας ανέβαινε κάθε βράδυ τη σκάλα.",
    u"שומר המגדלור עלה בכל ערב במדרגות.",
    u"كان حارس المنارة يصعد الدرج كل مساء.",
    u"คนเฝ้าประภาคาร เดินขึ้นบันได",
    u"灯台守は毎晩、二百段の階段を登りました。\n船に道を示すランプ。\n",
    u"灯塔的看守人每天晚上都爬上楼梯，\n一一上下不丁\n",
    u"등대지기는 매일 저녁 계단을 올라갔습니다.",
    u"प्रकाशस्तंभ का रखवाला हर शाम",
};

TEST(BareWideText, TextInWideUnitsIsEvidentWithoutAMark) {
    for (const std::u16string_view text : kTexts) {
        for (const WideEncoding encoding : kWideEncodings) {
            const std::string bytes = wideBytes(text, encoding);
            const auto found = evidentWideEncoding(bytes);
            SCOPED_TRACE(utf8FromUtf16(text));
            SCOPED_TRACE(static_cast<int>(encoding));
            // One NUL at the end may be padding as well; then the text is the same.
            if (text.size() > 1 || encoding == WideEncoding::Utf16BigEndian) {
                ASSERT_TRUE(found);
                EXPECT_EQ(*found, encoding);
            }
        }
    }
}

TEST(BareWideText, OtherTextIsNot) {
    constexpr std::string_view kOthers[] = {
        ""sv,
        "a"sv,
        "plain words\n"sv,
        "caf\xC3\xA9"sv,
        "caf\xE9"sv,
        "one\0two\0three\n"sv,
        "Some\0text\0with\0NULs\0instead\0of\0spaces\0"sv,
        "NUL at the end\0"sv,
        "padded\0\0\0\0\0\0\0\0\0\0"sv,
        "\xCF\xF0\xE8\xE2\xE5\xF2\0\xCF\xF0\xE8\xE2\xE5\xF2"sv,
        "\x01\0\x02\0\x03\0\x04\0\x05\0\x06\0"sv,
    };
    for (const std::string_view bytes : kOthers) {
        SCOPED_TRACE(bytes);
        EXPECT_FALSE(evidentWideEncoding(bytes));
    }
}

TEST(PlainText, IsReadInWhateverEncoding) {
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
        {"UTF-8 with a mark and damage", "\xEF\xBB\xBF\xE9"sv, u"\uFFFD"},
        {"UTF-8 whose end is cut off",
         "Gr\xC3\xBC\xC3\x9F"
         "e \xC3\xBC\xC3\xBC\xC3"sv,
         u"Grüße üü\uFFFD"},
        {"UTF-8 with one broken byte",
         "Gr\xC3\xBC\xC3\x9F"
         "e \xFF K\xC3\xBCsse f\xC3\xBCr"sv,
         u"Grüße \uFFFD Küsse für"},
        {"windows-1252", "caf\xE9"sv, u"café"},
        {"a windows-1252 ellipsis among controls",
         "a\x07"
         "b\x1B[31mred\x1B[0m\x0Cpage\x85\xA0"
         "end\n"sv,
         u"a\u0007b\u001B[31mred\u001B[0m\fpage…\u00A0end\n"},
        {"windows-1251", "\xCF\xF0\xE8\xE2\xE5\xF2, \xEC\xE8\xF0"sv, u"Привет, мир"},
        {"ISO-2022-JP", "\x1B$B8@8l\x1B(B words"sv, u"言語 words"},
        {"ISO-2022-KR", "\x1B$)C\n\x0E\x43\x25\x0F words"sv, u"\n책 words"},
        {"escapes of a terminal", "\x1B[1mbold\x1B[0m"sv, u"\u001B[1mbold\u001B[0m"},
        {"an escape that leads nowhere", "\x1B$B8"sv, u"\u001B$B8"},
        {"NULs between words", "one\0two\0three\n"sv, u"one\0two\0three\n"s},
        {"a NUL and the end of an old file", "caf\xE9\x1A\0"sv, u"café\u001A\0"s},
        {"padded with NULs", "a\0\0\0\0\0\0\0"sv, u"a\0\0\0\0\0\0\0"s},
        {"a mark inside is a character", "a\xEF\xBB\xBF"sv, u"a\uFEFF"},
        {"UTF-16 with an odd number of bytes", "\xFF\xFEz\0y"sv, u"z\uFFFD"},
        {"UTF-16 with a lone surrogate", "\xFE\xFF\xD8\x3D\0z"sv, u"\xD83Dz"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto text = plainTextFromBytes(row.bytes);
        ASSERT_TRUE(text) << text.fault().detail;
        EXPECT_EQ(utf8FromUtf16(text.value()), utf8FromUtf16(row.want));
        EXPECT_EQ(text.value(), row.want);
    }
}

TEST(PlainText, IsReadInWideUnitsWithAndWithoutAMark) {
    for (const std::u16string_view text : kTexts) {
        for (const WideEncoding encoding : kWideEncodings) {
            SCOPED_TRACE(utf8FromUtf16(text));
            const std::u16string marked = u"\uFEFF" + std::u16string(text);
            for (const std::u16string& written : {std::u16string(text), marked}) {
                const auto read = plainTextFromBytes(wideBytes(written, encoding));
                ASSERT_TRUE(read) << read.fault().detail;
                EXPECT_EQ(read.value().substr(0, text.size()), text);
                EXPECT_EQ(read.value().find_first_not_of(u'\0', text.size()), std::u16string::npos);
            }
        }
    }
}

TEST(PlainText, SoundTextMayHaveAControlCharacterInThree) {
    struct Row {
        const char* name;
        std::size_t controls;
        std::size_t units;
        bool isText;
    };
    constexpr Row kRows[] = {
        {"none of none", 0, 0, true},    {"one of three", 1, 3, true},
        {"one of two", 1, 2, false},     {"nothing else", 4, 4, false},
        {"ten of thirty", 10, 30, true}, {"eleven of thirty", 11, 30, false},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        const std::string bytes =
            std::string(row.controls, '\x01') + std::string(row.units - row.controls, 'x');
        EXPECT_EQ(static_cast<bool>(plainTextFromBytes(bytes)), row.isText);
    }
}

TEST(PlainText, ControlCharactersThatTextsHaveDoNotCount) {
    for (const char control : "\a\b\t\n\v\f\r\x0E\x0F\x1A\x1B"sv) {
        EXPECT_TRUE(plainTextFromBytes(std::string(5, control)));
    }
}

TEST(PlainText, DataOfOtherKindsIsRefused) {
    // What a generator of pseudo-random numbers gives has no sound UTF-8 in it.
    std::string noise;
    for (std::uint32_t state = 1; noise.size() < 1000;) {
        state = state * 1664525 + 1013904223;
        noise += static_cast<char>(state >> 24);
    }
    const std::string_view refused[] = {
        noise,
        "\0"sv,
        "\0\0\0\0"sv,
        "\x01\0\x02\0\x03\0\x04\0\x05\0\x06\0"sv,
        "\xFF\xFE\x01\0\x02\0"sv,
        "\x80\0\x80\0\x80\0\x80\0"sv,
    };
    for (const std::string_view bytes : refused) {
        const auto text = plainTextFromBytes(bytes);
        ASSERT_FALSE(text);
        EXPECT_EQ(text.fault().code, FaultCode::Unsupported);
        EXPECT_TRUE(text.fault().detail.starts_with("no text: ")) << text.fault().detail;
    }
    EXPECT_EQ(plainTextFromBytes("\x01\x02"
                                 "ab"sv)
                  .fault()
                  .detail,
              "no text: 2 control characters among 4 units");
}

TEST(PlainText, EveryBeginningOfATextIsRead) {
    for (const std::u16string_view text : kTexts) {
        const std::string bytes = utf8FromUtf16(text);
        for (std::size_t length = 0; length <= bytes.size(); length++) {
            const auto read = plainTextFromBytes(std::string_view(bytes).substr(0, length));
            ASSERT_TRUE(read);
            EXPECT_LE(read.value().size(), length);
        }
    }
}

}  // namespace
}  // namespace platform
