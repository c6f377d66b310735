#include "Platform/Text/SubstringEnumeration.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>

#include "Platform/Foundation/Exception.h"
#include "Tests/Support/Segments.h"

namespace platform {
namespace {

using test::unitsIn;
using test::unitTexts;
using Strings = std::vector<std::string>;

constexpr unsigned kParagraphs = 1;
constexpr unsigned kWords = 3;
constexpr unsigned kSentences = 4;

std::vector<TextUnit> allUnits(std::u16string_view text, unsigned options) {
    return unitsIn(text, {0, text.size()}, options);
}

TEST(SubstringEnumeration, WordsAreWithoutWhatStandsBetweenThem) {
    struct Row {
        const char* name;
        std::u16string_view text;
        Strings words;
    };
    const Row rows[] = {
        {"punctuation and marks",
         u"  Hello, world's 3.14 e-mail a_b 1st",
         {"Hello", "world's", "3.14", "e", "mail", "a_b", "1st"}},
        {"full stops inside",
         u"U.S.A. example.com 1.2.3 1,000",
         {"U.S.A", "example.com", "1.2.3", "1,000"}},
        {"signs of money and per cent", u"can\u2019t $5 50%", {"can\u2019t", "5", "50"}},
        {"colon", u"a:b", {"a", "b"}},
        {"Han and kana by dictionary", u"毎晩、東京タワー。", {"毎晩", "東京タワー"}},
        {"Hangul", u"안녕 세상", {"안녕", "세상"}},
        {"Thai by dictionary", u"สวัสดีชาวโลก", {"สวัสดี", "ชาว", "โลก"}},
        {"letters beyond the BMP", u"\U0001D400\U0001D401 \U0001F600", {"\U0001D400\U0001D401"}},
        {"nothing", u"", {}},
        {"no word", u" ,.- \U0001F600", {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(unitTexts(row.text, kWords).own, row.words);
    }
}

TEST(SubstringEnumeration, AWordEnclosesWhatFollowsAndTheFirstWhatPrecedes) {
    const std::vector<TextUnit> want = {{{2, 3}, {0, 7}}, {{7, 2}, {7, 3}}, {{10, 1}, {10, 3}}};
    EXPECT_EQ(allUnits(u"  one, at 5? ", kWords), want);
}

TEST(SubstringEnumeration, SentencesLoseWhiteSpaceButTheirEnclosingRangesKeepIt) {
    const std::u16string text =
        u"  First one. Second one?  Third!\nNext para. Mr. Smith went. e.g. this\r\nlast\u2029end";
    const test::UnitTexts texts = unitTexts(text, kSentences);
    EXPECT_EQ(texts.enclosing, (Strings{"  First one. ", "Second one?  ", "Third!\n", "Next para. ",
                                        "Mr. ", "Smith went. e.g. this\r\n", "last\u2029", "end"}));
    EXPECT_EQ(texts.own, (Strings{"First one.", "Second one?", "Third!", "Next para.", "Mr.",
                                  "Smith went. e.g. this", "last", "end"}));
}

TEST(SubstringEnumeration, BlankSentencesAreEmptyAtTheirStart) {
    const std::vector<TextUnit> want = {{{0, 0}, {0, 1}}, {{1, 0}, {1, 1}}, {{2, 4}, {2, 4}}};
    EXPECT_EQ(allUnits(u"\n\nA b.", kSentences), want);
}

TEST(SubstringEnumeration, ParagraphsLoseTheirEndAlone) {
    struct Row {
        const char* name;
        std::u16string_view text;
        std::vector<TextUnit> units;
    };
    const Row rows[] = {
        {"nothing", u"", {}},
        {"no end", u" a b ", {{{0, 5}, {0, 5}}}},
        {"an empty one between", u"a\n\nb", {{{0, 1}, {0, 2}}, {{2, 0}, {2, 1}}, {{3, 1}, {3, 1}}}},
        {"no empty one at the end", u"a\n", {{{0, 1}, {0, 2}}}},
        {"CR and LF in a row are one end", u"a\r\nb", {{{0, 1}, {0, 3}}, {{3, 1}, {3, 1}}}},
        {"CR alone, LF before CR",
         u"a\rb\n\r",
         {{{0, 1}, {0, 2}}, {{2, 1}, {2, 2}}, {{4, 0}, {4, 1}}}},
        {"U+2029 is an end", u"a\u2029b", {{{0, 1}, {0, 2}}, {{2, 1}, {2, 1}}}},
        {"U+2028 and U+0085 are none", u"a\u2028b\u0085c", {{{0, 5}, {0, 5}}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(allUnits(row.text, kParagraphs), row.units);
    }
}

constexpr std::u16string_view kManyKinds =
    u"\r\n First one, isn't it?\n\n毎晩、二百段を登りました。สวัสดีชาวโลก \U0001F600\U0001F600 "
    u"Mr. X said: \u201CNo.\u201D\u2029\xD83D lone \xDE00 halves\r\n  \u00A0\n";

TEST(SubstringEnumeration, ReverseGivesTheSameUnitsFromTheLastOne) {
    for (const unsigned unit : {kParagraphs, kWords, kSentences}) {
        std::vector<TextUnit> forwards = allUnits(kManyKinds, unit);
        ASSERT_GT(forwards.size(), 3u);
        std::reverse(forwards.begin(), forwards.end());
        EXPECT_EQ(allUnits(kManyKinds, unit | kEnumerationReverse), forwards);
    }
}

TEST(SubstringEnumeration, EnclosingRangesTileEachPartOfAText) {
    for (const unsigned unit : {kParagraphs, kWords, kSentences}) {
        for (std::uint64_t begin = 0; begin <= kManyKinds.size(); ++begin) {
            for (std::uint64_t end = begin; end <= kManyKinds.size(); end += 7) {
                const Range part{begin, end - begin};
                std::uint64_t position = begin;
                for (const TextUnit& found : unitsIn(kManyKinds, part, unit)) {
                    ASSERT_EQ(found.enclosingRange.location, position);
                    ASSERT_GT(found.enclosingRange.length, 0u);
                    ASSERT_GE(found.substringRange.location, position);
                    position = found.enclosingRange.end();
                    ASSERT_LE(found.substringRange.end(), position);
                }
                // A part without a word has no units.
                ASSERT_TRUE(position == end || (unit == kWords && position == begin));
            }
        }
    }
}

TEST(SubstringEnumeration, WhatLiesOutsideOfThePartIsNotSeen) {
    const std::u16string_view text = u"Another word. Cut here.";
    EXPECT_EQ(unitsIn(u"an (other wo)", {2, 8}, kWords), (std::vector<TextUnit>{{{4, 5}, {2, 8}}}));
    EXPECT_EQ(unitsIn(text, {2, 7}, kWords),
              (std::vector<TextUnit>{{{2, 5}, {2, 6}}, {{8, 1}, {8, 1}}}));
    EXPECT_EQ(unitsIn(text, {8, 9}, kSentences),
              (std::vector<TextUnit>{{{8, 5}, {8, 6}}, {{14, 3}, {14, 3}}}));
    // A part that begins between CR and LF begins inside an end.
    EXPECT_EQ(unitsIn(u"a\r\nb", {2, 2}, kParagraphs),
              (std::vector<TextUnit>{{{2, 0}, {2, 1}}, {{3, 1}, {3, 1}}}));
}

TEST(SubstringEnumeration, TheHandlerCanStopTheWalk) {
    for (const unsigned options : {kWords, kWords | kEnumerationReverse}) {
        std::vector<std::u16string> seen;
        enumerateSubstringsInRange(u"a b c d", {0, 7}, options,
                                   [&](const EnumeratedSubstring& unit, bool& stop) {
                                       seen.emplace_back(unit.substring.value());
                                       stop = seen.size() == 2;
                                   });
        EXPECT_EQ(seen, (options == kWords ? std::vector<std::u16string>{u"a", u"b"}
                                           : std::vector<std::u16string>{u"d", u"c"}));
    }
}

TEST(SubstringEnumeration, ASubstringThatIsNotRequiredIsNotGiven) {
    int count = 0;
    enumerateSubstringsInRange(u"a b", {0, 3}, kWords | kEnumerationSubstringNotRequired,
                               [&](const EnumeratedSubstring& unit, bool&) {
                                   EXPECT_FALSE(unit.substring);
                                   ++count;
                               });
    EXPECT_EQ(count, 2);
}

TEST(SubstringEnumeration, RefusesRangesOutsideAndOtherUnits) {
    const SubstringHandler ignore = [](const EnumeratedSubstring&, bool&) {
    };
    for (const Range range : {Range{0, 4}, Range{4, 0}, Range{3, 1}, Range{1, ~0ULL}}) {
        EXPECT_THROW(enumerateSubstringsInRange(u"abc", range, kWords, ignore), RangeException);
    }
    for (const unsigned unit : {0U, 2U, 5U, 6U, 0x100U}) {
        EXPECT_THROW(enumerateSubstringsInRange(u"abc", {0, 3}, unit, ignore),
                     InvalidArgumentException);
    }
}

TEST(SubstringEnumeration, ManyThreadsEnumerateAtOnce) {
    const std::vector<TextUnit> words = allUnits(kManyKinds, kWords);
    const std::vector<TextUnit> sentences = allUnits(kManyKinds, kSentences);
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                EXPECT_EQ(allUnits(kManyKinds, kWords), words);
                EXPECT_EQ(allUnits(kManyKinds, kSentences), sentences);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace platform
