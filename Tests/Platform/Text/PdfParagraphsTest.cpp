#include "Platform/Text/PdfParagraphs.h"

#include <gtest/gtest.h>

#include "Tests/Support/DrawnTexts.h"

namespace platform {
namespace {

using test::expectTexts;

TEST(PdfParagraphs, JoinsTheLinesOfAParagraph) {
    expectTexts({
        {"full lines",
         {{0, 0, U"one two three"}, {0, 12, U"four five six"}},
         "one two three four five six\n"},
        {"a word that is broken",
         {{0, 0, U"one two hyphen-"}, {0, 12, U"ated three four"}},
         "one two hyphen- ated three four\n"},
        {"soft hyphens at ends and inside",
         {{0, 0, U"one two hyphen\u00AD"}, {0, 12, U"a\u00ADted three four"}},
         "one two hyphen- ated three four\n"},
        {"Unicode's hyphens at ends and inside",
         {{0, 0, U"one two hyphen\u2010"}, {0, 12, U"a\u2010ted three four"}},
         "one two hyphen- a\u2010ted three four\n"},
        {"a stretch of years",
         {{0, 0, U"words of 2019-"}, {0, 12, U"2020 and later"}},
         "words of 2019-2020 and later\n"},
        {"Han and kana",
         {{0, 0, U"\u4EBA\u985E\u793E\u4F1A\u306E"}, {0, 12, U"\u3059\u3079\u3066\u306E\u69CB"}},
         "\u4EBA\u985E\u793E\u4F1A\u306E\u3059\u3079\u3066\u306E\u69CB\n"},
        {"Thai",
         {{0, 0, U"\u0E21\u0E19\u0E38\u0E29\u0E22"}, {0, 12, U"\u0E17\u0E31\u0E49\u0E07"}},
         "\u0E21\u0E19\u0E38\u0E29\u0E22\u0E17\u0E31\u0E49\u0E07\n"},
        {"Thai digits",
         {{0, 0, U"\u0E1B\u0E35\u0E52\u0E55"}, {0, 12, U"\u0E56\u0E57\u0E40\u0E1B"}},
         "\u0E1B\u0E35\u0E52\u0E55\u0E56\u0E57\u0E40\u0E1B\n"},
        {"Khmer and Myanmar",
         {{0, 0, U"\u1780\u17E1"}, {0, 12, U"\u17E2\u1000"}, {0, 24, U"\u1041\u1000"}},
         "\u1780\u17E1\u17E2\u1000\u1041\u1000\n"},
        {"Han and quotation marks",
         {{0, 0, U"\u4E0B\u96E8\u3002\u201D"},
          {0, 12, U"\u7136\u95EE\u2026\u2026"},
          {0, 24, U"\u201C\u91CC\u201D\u7684"}},
         "\u4E0B\u96E8\u3002\u201D\u7136\u95EE\u2026\u2026\u201C\u91CC\u201D\u7684\n"},
        {"Latin and quotation marks",
         {{0, 0, U"he \u201Csaid\u201D"}, {0, 12, U"\u201Cthat\u201D he"}},
         "he \u201Csaid\u201D \u201Cthat\u201D he\n"},
        {"Han and a Latin word in quotation marks",
         {{0, 0, U"\u4E0B\u96E8\u7136\u95EE"}, {0, 12, U"\u201Cand\u201D"}},
         "\u4E0B\u96E8\u7136\u95EE \u201Cand\u201D\n"},
        {"Thai and quotation marks",
         {{0, 0, U"\u0E1B\u0E35\u0E1B\u201D"}, {0, 12, U"\u201C\u0E1B\u0E35\u201D"}},
         "\u0E1B\u0E35\u0E1B\u201D \u201C\u0E1B\u0E35\u201D\n"},
        {"nothing but signs",
         {{0, 0, U"\u2014\u2014\u2014\u2014"}, {0, 12, U"\u4E0B\u96E8\u7136\u95EE"}},
         "\u2014\u2014\u2014\u2014 \u4E0B\u96E8\u7136\u95EE\n"},
        {"Han before Latin",
         {{0, 0, U"\u4EBA\u985E\u793E\u4F1A\u306E"}, {0, 12, U"words"}},
         "\u4EBA\u985E\u793E\u4F1A\u306E words\n"},
    });
}

TEST(PdfParagraphs, EndsAParagraph) {
    expectTexts({
        {"where the next word would have had room",
         {{0, 0, U"a long line of words"}, {0, 12, U"its end"}, {0, 24, U"next paragraph here"}},
         "a long line of words its end\nnext paragraph here\n"},
        {"where the next line is indented",
         {{0, 0, U"a line that is full"},
          {0, 12, U"and another one too"},
          {15, 24, U"indented a while"},
          {0, 36, U"and going on so far"}},
         "a line that is full and another one too\nindented a while and going on so far\n"},
        {"where a wider space follows",
         {{0, 0, U"a line that is full"},
          {0, 12, U"and another one too"},
          {0, 30, U"after a wider space"},
          {0, 42, U"and going on so far"}},
         "a line that is full and another one too\nafter a wider space and going on so far\n"},
        {"where the size changes",
         {{0, 0, U"Headline", 16}, {0, 20, U"words of the text"}, {0, 32, U"that is below it."}},
         "Headline\nwords of the text that is below it.\n"},
        {"where the font changes",
         {{0, 0, U"a heading in bold", 10, "Bold"}, {0, 12, U"words of the text"}},
         "a heading in bold\nwords of the text\n"},
        {"before a bullet",
         {{0, 0, U"\u2022 first of items"},
          {10, 12, U"goes on there"},
          {0, 24, U"\u2022 second of them"}},
         "\u2022 first of items goes on there\n\u2022 second of them\n"},
        {"where lines hang",
         {{0, 0, U"Entry one of the list"},
          {20, 12, U"goes on in here, ab"},
          {20, 24, U"and for longer, too"},
          {0, 36, U"Entry two of the list"}},
         "Entry one of the list goes on in here, ab and for longer, too\nEntry two of the list\n"},
        {"but not where lines stand in the middle",
         {{0, 0, U"a title as wide as this is"}, {20, 12, U"and a second line."}},
         "a title as wide as this is and a second line.\n"},
    });
}

TEST(PdfParagraphs, BeginsAParagraphWithEachItem) {
    expectTexts({
        {"bullets that are codes for private use",
         {{0, 0, U"\uF0B7 first of items"},
          {10, 12, U"goes on there as"},
          {10, 24, U"full as it could"},
          {0, 36, U"\uF0B7 second of them"}},
         "first of items goes on there as full as it could\nsecond of them\n"},
        {"such bullets as pieces of their own",
         {{0, 0, U"\uF0B7"},
          {20, 0, U"first of all items"},
          {0, 12, U"\uF0B7"},
          {20, 12, U"second of all these"}},
         "first of all items\nsecond of all these\n"},
        {"but no such code inside a line",
         {{0, 0, U"words before \uF0B7 and"}, {0, 12, U"words behind that too"}},
         "words before and words behind that too\n"},
        {"numbers",
         {{0, 0, U"the list of all items:"},
          {0, 12, U"1. the first one of it"},
          {0, 24, U"2. the second one that"},
          {15, 36, U"goes on a bit here,"},
          {0, 48, U"3. the third, at the end"}},
         "the list of all items:\n1. the first one of it\n2. the second one that goes on a bit "
         "here,\n3. the third, at the end\n"},
        {"numbers of two kinds",
         {{0, 0, U"(9) the first one of it"},
          {20, 12, U"a) a part of that one"},
          {20, 24, U"b) the other part of it"},
          {0, 36, U"(10) the other of these"}},
         "(9) the first one of it\na) a part of that one\nb) the other part of it\n(10) the other "
         "of these\n"},
        {"but no number alone",
         {{0, 0, U"it was on the morning of"}, {0, 12, U"3. May that it all began"}},
         "it was on the morning of 3. May that it all began\n"},
        {"nor numbers that do not follow each other",
         {{0, 0, U"it was on the morning of"},
          {0, 12, U"3. May that it began; on"},
          {0, 24, U"9. May it was all over"}},
         "it was on the morning of 3. May that it began; on 9. May it was all over\n"},
        {"nor numbers with something else behind them",
         {{0, 0, U"1.5 of them were in the"}, {0, 12, U"2.5 and so on for a long"}},
         "1.5 of them were in the 2.5 and so on for a long\n"},
    });
}

TEST(PdfParagraphs, EndsAParagraphBehindDotsThatLeadToANumber) {
    expectTexts({
        {"pages of chapters",
         {{0, 0, U"Preface ............ xii"},
          {0, 12, U"The chapter . . . . .  1"},
          {0, 24, U"The last \u2026\u2026\u2026\u2026\u2026\u2026 12"}},
         "Preface ............ xii\nThe chapter . . . . . 1\nThe last "
         "\u2026\u2026\u2026\u2026\u2026\u2026 12\n"},
        {"dots to be filled in",
         {{0, 0, U"Name ............."}, {0, 12, U"Town ............."}},
         "Name .............\nTown .............\n"},
        {"but not behind a few",
         {{0, 0, U"and then it was ..."}, {0, 12, U"as if it had been"}},
         "and then it was ... as if it had been\n"},
    });
}

TEST(PdfParagraphs, LeavesAHyphenAloneWhereTheLineStillHadRoom) {
    expectTexts({
        {"items that end in a hyphen",
         {{0, 0, U"These groups are there:"},
          {0, 12, U"A+"},
          {0, 24, U"A-"},
          {0, 36, U"AB-"},
          {0, 48, U"and no others than those"}},
         "These groups are there: A+\nA-\nAB-\nand no others than those\n"},
        {"rows of a table",
         {{0, 0, U"Miller"}, {150, 0, U"A-"}, {0, 12, U"Smith"}, {150, 12, U"B+"}},
         "Miller A-\nSmith B+\n"},
        {"items with wide spaces between them",
         {{0, 0, U"These groups are there:"},
          {0, 12, U"they are those as a list"},
          {0, 32, U"A-"},
          {0, 52, U"B-"},
          {0, 72, U"none"}},
         "These groups are there: they are those as a list\nA-\nB-\nnone\n"},
        {"but not where the line was full for its word",
         {{0, 0, U"one line that is the longest"},
          {0, 12, U"and a shorter one that hyphen-"},
          {0, 24, U"ates, before the whole of its"},
          {0, 36, U"text that is ragged incon-"},
          {0, 48, U"veniently ends."}},
         "one line that is the longest and a shorter one that hyphen- ates, before the whole of "
         "its text that is ragged incon- veniently ends.\n"},
        {"nor where a picture leaves less room",
         {{0, 0, U"one line of as much as there is of width"},
          {0, 12, U"two lines of less that hyphen-"},
          {0, 24, U"ate, before the rest of the te"},
          {0, 36, U"xt comes, whose lines have all of it, too"}},
         "one line of as much as there is of width two lines of less that hyphen- ate, before "
         "the rest of the te\nxt comes, whose lines have all of it, too\n"},
    });
}

TEST(PdfParagraphs, GoesOnWithAWordBelowAWiderSpace) {
    expectTexts({
        {"below something tall",
         {{0, 0, U"words of the text that go"},
          {0, 12, U"on until they are hyphen-"},
          {0, 30, U"ated and go on below, all"},
          {0, 42, U"of them."}},
         "words of the text that go on until they are hyphen- ated and go on below, all of "
         "them.\n"},
        {"but not where the line still had room",
         {{0, 0, U"words of the text that go"},
          {0, 12, U"on to A-"},
          {0, 30, U"ated and go on below, all"}},
         "words of the text that go on to A-\nated and go on below, all\n"},
        {"nor far below",
         {{0, 0, U"words of the text that go"},
          {0, 12, U"on until they are hyphen-"},
          {0, 42, U"ated and go on below, all"}},
         "words of the text that go on until they are hyphen-\nated and go on below, all\n"},
        {"nor in another size",
         {{0, 0, U"words of the text that go"},
          {0, 12, U"on until they are hyphen-"},
          {0, 30, U"a heading", 14}},
         "words of the text that go on until they are hyphen-\na heading\n"},
        {"nor in the middle",
         {{0, 0, U"words of the text that go"},
          {0, 12, U"on until they are hyphen-"},
          {30, 32, U"a caption"}},
         "words of the text that go on until they are hyphen-\na caption\n"},
    });
}

}  // namespace
}  // namespace platform
