#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/AlphabetCost.h"
#include "Platform/Text/DoubleByteCost.h"

namespace platform {
namespace {

TEST(AlphabetCost, AsciiCostsTheSameWhateverItSays) {
    EXPECT_EQ(alphabetCost(u""), 0);
    EXPECT_EQ(alphabetCost(u"ab"), 2 * kAsciiCost);
    EXPECT_EQ(alphabetCost(u"aB1{}\t\n"), 7 * kAsciiCost);
}

TEST(AlphabetCost, WhatPeopleWriteCostsLess) {
    struct Row {
        const char* name;
        std::u16string_view likely;
        std::u16string_view unlikely;
    };
    constexpr Row kRows[] = {
        {"small letters, not a capital inside of a word", u"élève", u"éÉève"},
        {"a capital at the start, not at the end", u"Привет", u"приветЪ"},
        {"capitals alone, not before small letters", u"МОСКВА", u"МОсква"},
        {"letters, not signs, between letters", u"książka", u"ksi¹¿ka"},
        {"quotation marks around a word, not inside", u"“naïve”", u"na”ïve“"},
        {"an apostrophe, not another mark, inside", u"l’été", u"l…été"},
        {"one script in a word, not two", u"café", u"cafй"},
        {"one script in a text, not two", u"один два", u"один ñèê"},
        {"few letters beyond ASCII, not many", u"ìesto", u"ìåñòî"},
        {"common letters of the alphabet, not rare ones", u"тоска", u"фыщцэ"},
        {"common letters of Greek", u"ναι", u"ξψζ"},
        {"a form of the end at the end", u"שלום", u"םשלו"},
        {"a letter of the end of Arabic at the end", u"مدينة", u"مديةن"},
        {"a mark over a letter, not alone", u"กิน", u"ิกน"},
        {"a vowel before its consonant, not at the end", u"เก", u"กเ"},
        {"a mark of its own script", u"e\u0301", u"e\u0650"},
        {"lines side by side, not beside letters", u"═══ à", u"═à══"},
        {"the same line again, not another", u"═══", u"═╣╗"},
        {"a character, not a control", u"…", u"\u0085"},
        {"a character, not none", u"é", u"\uFFFD"},
        {"a common sign, not a rare one", u"©", u"¬"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        ASSERT_EQ(row.likely.size() > 1, row.unlikely.size() > 1);
        EXPECT_LT(alphabetCost(row.likely) / static_cast<float>(row.likely.size()),
                  alphabetCost(row.unlikely) / static_cast<float>(row.unlikely.size()));
    }
}

TEST(DoubleByteCost, EachEncodingIsCheapestForItsOwnText) {
    struct Row {
        DoubleByteEncoding encoding;
        std::string_view bytes;
    };
    constexpr Row kRows[] = {
        {DoubleByteEncoding::ShiftJis,
         "\x93\x94\x91\xE4\x8E\xE7\x82\xCD\x96\x88\x94\xD3\x93o\x82\xE8\x82\xDC\x82\xB7\x81\x42"},
        {DoubleByteEncoding::EucJp,
         "\xC5\xF4\xC2\xE6\xBC\xE9\xA4\xCF\xCB\xE8\xC8\xD5\xC5\xD0\xA4\xEA\xA4\xDE\xA4\xB9\xA1"
         "\xA3"},
        {DoubleByteEncoding::Gbk,
         "\xBF\xB4\xCA\xD8\xC8\xCB\xC3\xBF\xCC\xEC\xCD\xED\xC9\xCF\xB6\xBC\xC5\xC0\xC9\xCF\xC2\xA5"
         "\xCC\xDD\xA1\xA3"},
        {DoubleByteEncoding::Big5,
         "\xAC\xDD\xA6u\xA4H\xA8\x43\xA4\xD1\xB1\xDF\xA4W\xB3\xA3\xAA\xA6\xA4W\xBC\xD3\xB1\xE8\xA1"
         "\x43"},
        {DoubleByteEncoding::EucKr,
         "\xB5\xEE\xB4\xEB\xC1\xF6\xB1\xE2\xB4\xC2 \xB8\xC5\xC0\xCF \xB0\xE8\xB4\xDC\xC0\xBB "
         "\xBF\xC3\xB6\xF3\xB0\xAC\xBD\xC0\xB4\xCF\xB4\xD9."},
        {DoubleByteEncoding::Johab,
         "\x97w\x94\x81\xBB\xA1\x8B\xA1\x93"
         "e \xA0\x81\xB7\xA9 \x89\x81\x94"
         "e\xB7i \xB5\xA9\x9C"
         "a\x88v\xAFs\x93\xA1\x94"
         "a."},
    };
    for (const Row& own : kRows) {
        SCOPED_TRACE(static_cast<int>(own.encoding));
        for (const Row& other : kRows) {
            if (other.encoding != own.encoding) {
                EXPECT_LT(doubleByteCost(own.bytes, own.encoding),
                          doubleByteCost(own.bytes, other.encoding))
                    << static_cast<int>(other.encoding);
            }
        }
    }
}

TEST(DoubleByteCost, CountsAsciiAndHalfCharacters) {
    EXPECT_EQ(doubleByteCost("", DoubleByteEncoding::Gbk), 0);
    EXPECT_EQ(doubleByteCost("a\n", DoubleByteEncoding::Gbk), 2 * kAsciiCost);
    // Half a character at the end costs less than what is no character inside.
    EXPECT_LT(doubleByteCost("\xB5", DoubleByteEncoding::Gbk),
              doubleByteCost("\xB5 ", DoubleByteEncoding::Gbk) - kAsciiCost);
    // A letter without a blank between.
    EXPECT_LT(doubleByteCost("a \xB5\xC4", DoubleByteEncoding::Gbk),
              doubleByteCost("a\xB5\xC4 ", DoubleByteEncoding::Gbk));
}

}  // namespace
}  // namespace platform
