#include "Platform/Text/EncodingDetector.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/CodePageConverter.h"

namespace platform {
namespace {

std::u16string decoded(std::string_view bytes, const char* name) {
    std::u16string text;
    CodePageConverter::converterNamed(name)->append(text, bytes);
    return text;
}

/// The text in an encoding of one byte a character. Requires: the encoding has all of it.
std::string encoded(std::u16string_view text, const char* name) {
    std::string upperHalf;
    for (int byte = 0x80; byte < 0x100; byte++) {
        upperHalf += static_cast<char>(byte);
    }
    const std::u16string characters = decoded(upperHalf, name);
    EXPECT_EQ(characters.size(), upperHalf.size());
    std::string bytes;
    for (const char16_t unit : text) {
        if (unit < 0x80) {
            bytes += static_cast<char>(unit);
            continue;
        }
        const std::size_t place = characters.find(unit);
        EXPECT_NE(place, std::u16string::npos) << utf8FromUtf16(std::u16string(1, unit));
        bytes += upperHalf.at(place);
    }
    return bytes;
}

TEST(EncodingDetector, FindsTheEncodingOfASentence) {
    struct Row {
        const char* encoding;
        std::u16string_view text;
    };
    constexpr Row kRows[] = {
        {"windows-1252",
         u"Der Wärter stieg jeden Abend die Treppe hinauf und zündete die Lampe an."},
        {"macintosh", u"Der Wärter stieg jeden Abend die Treppe hinauf und zündete die Lampe an."},
        {"ibm-850", u"Der Wärter stieg jeden Abend die Treppe hinauf und zündete die Lampe an."},
        {"windows-1252", u"¿Dónde está la estación de autobuses? Está al final de la calle."},
        {"macintosh", u"¿Dónde está la estación de autobuses? Está al final de la calle."},
        {"windows-1252", u"« Où êtes-vous allé ? » demanda-t-elle – mais il n’était plus là…"},
        {"windows-1252", u"Copyright © 2003 Smith & Sons. All rights reserved ®."},
        {"windows-1252", u"“Don’t worry,” she said — it costs £5 at the café."},
        {"windows-1252", u"Børnene løb ned ad gaden og råbte på hunden, der var løbet væk."},
        {"windows-1250", u"Każdego wieczoru latarnik wchodził po schodach i zapalał lampę."},
        {"iso-8859-2", u"Każdego wieczoru latarnik wchodził po ścieżce i zapalał lampę."},
        {"ibm-852", u"Każdego wieczoru latarnik wchodził po ścieżce i zapalał lampę."},
        {"windows-1250", u"Strážce majáku vystoupal každý večer po schodech a rozsvítil lampu."},
        {"x-mac-centraleurroman", u"Strážce majáku vystoupal každý večer po schodech."},
        {"windows-1250", u"Az őrült nő eltűnt a ködös erdőben, és többé senki sem látta."},
        {"windows-1251", u"Смотритель маяка каждый вечер поднимался по лестнице."},
        {"koi8-r", u"Смотритель маяка каждый вечер поднимался по лестнице."},
        {"ibm866", u"Смотритель маяка каждый вечер поднимался по лестнице."},
        {"iso-8859-5", u"Смотритель маяка каждый вечер поднимался по лестнице."},
        {"x-mac-cyrillic", u"Смотритель маяка каждый вечер поднимался по лестнице."},
        {"windows-1251", u"Доглядач маяка щовечора піднімався сходами і запалював лампу."},
        {"koi8-u", u"Їхні діти вже пішли до школи, а ми ще стоїмо."},
        {"windows-1253", u"Ο φαροφύλακας ανέβαινε κάθε βράδυ τη σκάλα. Άργησε."},
        {"iso-8859-7", u"Ο φαροφύλακας ανέβαινε κάθε βράδυ τη σκάλα. Άργησε."},
        {"windows-1254", u"Fener bekçisi her akşam merdivenleri çıkar ve lambayı yakardı."},
        {"windows-1255", u"שומר המגדלור עלה בכל ערב במדרגות והדליק את המנורה."},
        {"windows-1256", u"كان حارس المنارة يصعد الدرج كل مساء ويشعل المصباح."},
        {"iso-8859-6", u"كان حارس المنارة يصعد الدرج كل مساء ويشعل المصباح."},
        {"windows-1257", u"Kiekvieną vakarą švyturio prižiūrėtojas lipo laiptais."},
        {"windows-874", u"คนเฝ้าประภาคารเดินขึ้นบันไดทุกเย็นและจุดตะเกียง"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(std::string(row.encoding) + ": " + utf8FromUtf16(row.text));
        const std::string bytes = encoded(row.text, row.encoding);
        EXPECT_EQ(utf8FromUtf16(textInEncoding(bytes, likeliestEncoding(bytes))),
                  utf8FromUtf16(row.text));
    }
}

TEST(EncodingDetector, FindsTheEncodingsOfEastAsia) {
    struct Row {
        const char* encoding;
        std::string_view bytes;
        std::u16string_view text;
    };
    constexpr Row kRows[] = {
        {"windows-932",
         "\x93\x94\x91\xE4\x8E\xE7\x82\xCD\x96\x88\x94\xD3\x81\x41\x93\xF1\x95S\x92i\x82\xCC\x8AK"
         "\x92i\x82\xF0\x93o\x82\xE8\x82\xDC\x82\xB5\x82\xBD\x81\x42",
         u"灯台守は毎晩、二百段の階段を登りました。"},
        {"euc-jp",
         "\xA4\xAA\xA4\xCF\xA4\xE8\xA4\xA6\xA4\xB4\xA4\xB6\xA4\xA4\xA4\xDE\xA4\xB9\xA1\xA3\xB1\xD8"
         "\xA4\xCF\xA4\xC9\xA4\xB3\xA4\xCB\xA4\xA2\xA4\xEA\xA4\xDE\xA4\xB9\xA4\xAB\xA1\xA3",
         u"おはようございます。駅はどこにありますか。"},
        {"gb18030",
         "\xB5\xC6\xCB\xFE\xB5\xC4\xBF\xB4\xCA\xD8\xC8\xCB\xC3\xBF\xCC\xEC\xCD\xED\xC9\xCF\xB6\xBC"
         "\xC5\xC0\xC9\xCF\xC2\xA5\xCC\xDD\xA1\xA3",
         u"灯塔的看守人每天晚上都爬上楼梯。"},
        {"windows-950",
         "\xBFO\xB6\xF0\xAA\xBA\xAC\xDD\xA6u\xA4H\xA8\x43\xA4\xD1\xB1\xDF\xA4W\xB3\xA3\xAA\xA6\xA4W"
         "\xBC\xD3\xB1\xE8\xA1\x43",
         u"燈塔的看守人每天晚上都爬上樓梯。"},
        {"windows-949",
         "\xB5\xEE\xB4\xEB\xC1\xF6\xB1\xE2\xB4\xC2 \xB8\xC5\xC0\xCF \xC0\xFA\xB3\xE1 "
         "\xB0\xE8\xB4\xDC\xC0\xBB \xBF\xC3\xB6\xF3\xB0\xAC\xBD\xC0\xB4\xCF\xB4\xD9.",
         u"등대지기는 매일 저녁 계단을 올라갔습니다."},
        {"gb18030",
         "\xCA\xB9\xD3\xC3 Linux "
         "\xCF\xB5\xCD\xB3\xB5\xC4\xC8\xCB\xD4\xBD\xC0\xB4\xD4\xBD\xB6\xE0\xA1\xA3",
         u"使用 Linux 系统的人越来越多。"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.encoding);
        const char* const encoding = likeliestEncoding(row.bytes);
        EXPECT_STREQ(encoding, row.encoding);
        EXPECT_EQ(utf8FromUtf16(textInEncoding(row.bytes, encoding)), utf8FromUtf16(row.text));
    }
}

TEST(EncodingDetector, OfEncodingsThatReadATextAlikeTheCommonerIsTaken) {
    EXPECT_STREQ(likeliestEncoding("caf\xE9"), "windows-1252");
    EXPECT_STREQ(likeliestEncoding("\xCF\xF0\xE8\xE2\xE5\xF2"), "windows-1251");
}

TEST(EncodingDetector, NothingBeyondAsciiSpeaksForNoOther) {
    EXPECT_STREQ(likeliestEncoding(""), "windows-1252");
    EXPECT_STREQ(likeliestEncoding("words"), "windows-1252");
}

TEST(EncodingDetector, FindsDamagedUtf8) {
    EXPECT_STREQ(likeliestEncoding("Gr\xC3\xBC\xC3\x9F"
                                   "e \xFF\xFE und K\xC3\xBCsse"),
                 kUtf8Name);
}

TEST(EncodingDetector, LooksWhereTheBytesBeyondAsciiAre) {
    const std::u16string_view russian = u"Смотритель маяка каждый вечер поднимался по лестнице.";
    std::string bytes;
    for (int i = 0; i < 2000; i++) {
        bytes += "plain words of a long preface, ";
    }
    bytes += encoded(russian, "koi8-r");
    EXPECT_STREQ(likeliestEncoding(bytes), "koi8-r");
}

TEST(EncodingDetector, AnswersForAnyBytes) {
    std::string all;
    for (int byte = 0; byte < 0x100; byte++) {
        all += static_cast<char>(byte);
        all += static_cast<char>(255 - byte);
    }
    for (std::size_t length = 0; length <= all.size(); length++) {
        const char* const name = likeliestEncoding(std::string_view(all).substr(0, length));
        EXPECT_LE(textInEncoding(std::string_view(all).substr(0, length), name).size(), length);
    }
}

}  // namespace
}  // namespace platform
