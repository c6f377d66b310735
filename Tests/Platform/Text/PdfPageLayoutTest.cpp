#include "Platform/Text/PdfPageLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/Font.h"
#include "Tests/Support/DrawnPage.h"

namespace platform {
namespace {

using test::DrawnPage;

std::string textOf(const DrawnPage& page) {
    return utf8FromUtf16(attributedStringFromPdfPage(page.text()).string());
}

struct Row {
    const char* name;
    DrawnPage page;
    const char* want;
};

void expectTexts(std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(textOf(row.page), row.want);
    }
}

TEST(PdfPageLayout, EndsAPageWithALineFeedOrABrokenWord) {
    expectTexts({
        {"nothing", {}, ""},
        {"nothing but blanks", {{0, 0, U"   "}}, ""},
        {"a word", {{0, 0, U"word"}}, "word\n"},
        {"a letter and a hyphen", {{0, 0, U"hyphen-"}}, "hyphen- "},
        {"Unicode's hyphen", {{0, 0, U"hyphen\u2010"}}, "hyphen- "},
        {"a soft hyphen", {{0, 0, U"hyphen\u00AD"}}, "hyphen- "},
        {"a digit and a hyphen", {{0, 0, U"2019-"}}, "2019-\n"},
        {"a hyphen alone", {{0, 0, U"-"}}, "-\n"},
    });
}

TEST(PdfPageLayout, JoinsTheLinesOfAParagraph) {
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
        {"Han before Latin",
         {{0, 0, U"\u4EBA\u985E\u793E\u4F1A\u306E"}, {0, 12, U"words"}},
         "\u4EBA\u985E\u793E\u4F1A\u306E words\n"},
    });
}

TEST(PdfPageLayout, EndsAParagraph) {
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

TEST(PdfPageLayout, ReadsColumnsOneAfterTheOther) {
    const DrawnPage twoColumns = {
        {0, 0, U"A headline over both of the columns", 14},
        {0, 40, U"left column begins"},
        {110, 40, U"right begins here"},
        {0, 52, U"and goes on and on"},
        {110, 52, U"and goes on as th"},
        {0, 64, U"until it ends here"},
        {110, 64, U"left one has done"},
        {60, 120, U"- 7 -"},
    };
    EXPECT_EQ(textOf(twoColumns),
              "A headline over both of the columns\nleft column begins and goes on and on until it "
              "ends here right begins here and goes on as th left one has done\n- 7 -\n");
    const DrawnPage unlikeHeights = {
        {0, 0, U"left column begins"},   {0, 12, U"and goes on and on"},
        {0, 24, U"until it ends here."}, {110, 5, U"right begins here"},
        {110, 17, U"and goes on as th"}, {110, 29, U"left one has done."},
    };
    EXPECT_EQ(textOf(unlikeHeights),
              "left column begins and goes on and on until it ends here.\nright begins here and "
              "goes on as th left one has done.\n");
}

TEST(PdfPageLayout, GoesOnWithAWordInTheNextColumn) {
    const DrawnPage page = {
        {0, 0, U"left column begins"},   {110, 0, U"ated at its start"},
        {0, 12, U"and goes on and on"},  {110, 12, U"and goes on as th"},
        {0, 24, U"until it is hyphen-"}, {110, 24, U"left one has done."},
    };
    EXPECT_EQ(
        textOf(page),
        "left column begins and goes on and on until it is hyphen- ated at its start and goes "
        "on as th left one has done.\n");
}

TEST(PdfPageLayout, ReadsATableByItsRows) {
    const DrawnPage page = {
        {0, 0, U"Berlin"},  {80, 0, U"1,234"},  {160, 0, U"DE"},
        {0, 20, U"Vienna"}, {80, 20, U"56"},    {160, 20, U"AT"},
        {0, 40, U"Paris"},  {80, 40, U"7,890"}, {160, 40, U"FR"},
    };
    EXPECT_EQ(textOf(page), "Berlin 1,234 DE\nVienna 56 AT\nParis 7,890 FR\n");
}

TEST(PdfPageLayout, PartsWordsThatStandApartInOnePiece) {
    DrawnPage page;
    double x = 0;
    for (const char32_t character : std::u32string(U"CellOther")) {
        x += character == U'O' ? 40 : 0;
        page.addCharacter(character, {x, 0, x + 5, 12});
        x += 5;
    }
    EXPECT_EQ(textOf(page), "Cell Other\n");
}

TEST(PdfPageLayout, PutsSmallMarksIntoTheirLine) {
    const DrawnPage page = {
        {0, 10, U"See the note"}, {61, 8, U"7", 6}, {66, 10, U"for more of it."}};
    EXPECT_EQ(textOf(page), "See the note7 for more of it.\n");
}

TEST(PdfPageLayout, ReadsTextThatRunsUpOrDown) {
    DrawnPage down;
    down.addDown({300, 0, U"runs down the page"});
    down.addDown({288, 0, U"and so does this 1"});
    EXPECT_EQ(textOf(down), "runs down the page and so does this 1\n");
    DrawnPage up;
    up.addUp({0, 300, U"runs up the page as"});
    up.addUp({12, 300, U"this line does, too"});
    EXPECT_EQ(textOf(up), "runs up the page as this line does, too\n");
    DrawnPage both = {{50, 0, U"Most of the page is upright"},
                      {50, 12, U"and reads as always does."}};
    both.addUp({0, 300, U"margin"});
    EXPECT_EQ(textOf(both), "Most of the page is upright and reads as always does.\nmargin\n");
}

TEST(PdfPageLayout, ReadsFromTheRightWhatIsWrittenSo) {
    // As it stands on the page, from the left.
    expectTexts({
        {"words", {{0, 0, U"\u05D3\u05D2 \u05D1\u05D0"}}, "\u05D0\u05D1 \u05D2\u05D3\n"},
        {"a number", {{0, 0, U"\u05D1 12.5 \u05D0"}}, "\u05D0 12.5 \u05D1\n"},
        {"brackets", {{0, 0, U"(\u05D1) \u05D0"}}, "\u05D0 (\u05D1)\n"},
        {"a word of another script",
         {{0, 0, U"\u05D3\u05D2\u05D1 word two \u05D0\u05D0\u05D0\u05D0\u05D0"}},
         "\u05D0\u05D0\u05D0\u05D0\u05D0 word two \u05D1\u05D2\u05D3\n"},
        {"in a line of another script",
         {{0, 0, U"Latin words with \u05D1\u05D0 \u05D3\u05D2 in the middle"}},
         "Latin words with \u05D2\u05D3 \u05D0\u05D1 in the middle\n"},
        {"a full stop at the line's end", {{0, 0, U".\u05D1\u05D0"}}, "\u05D0\u05D1.\n"},
        {"a full stop where the line is set from the left",
         {{0, 0, U"\u05D1\u05D0."}},
         "\u05D0\u05D1.\n"},
        {"columns",
         {{0, 0, U"\u05D4\u05D4\u05D4\u05D4\u05D4\u05D4 \u05D5\u05D5\u05D5\u05D5\u05D5\u05D5"},
          {100, 0, U"\u05D0\u05D0\u05D0\u05D0\u05D0\u05D0 \u05D1\u05D1\u05D1\u05D1\u05D1\u05D1"},
          {0, 12, U".\u05D4\u05D4\u05D4\u05D4\u05D4 \u05D5\u05D5\u05D5\u05D5\u05D5\u05D5"},
          {100, 12, U".\u05D0\u05D0\u05D0\u05D0\u05D0 \u05D1\u05D1\u05D1\u05D1\u05D1\u05D1"}},
         "\u05D1\u05D1\u05D1\u05D1\u05D1\u05D1 \u05D0\u05D0\u05D0\u05D0\u05D0\u05D0 "
         "\u05D1\u05D1\u05D1\u05D1\u05D1\u05D1 \u05D0\u05D0\u05D0\u05D0\u05D0.\n"
         "\u05D5\u05D5\u05D5\u05D5\u05D5\u05D5 \u05D4\u05D4\u05D4\u05D4\u05D4\u05D4 "
         "\u05D5\u05D5\u05D5\u05D5\u05D5\u05D5 \u05D4\u05D4\u05D4\u05D4\u05D4.\n"},
    });
}

TEST(PdfPageLayout, TellsLigaturesOfLamAndAlefFromTheArticle) {
    // The article's letters, of two widths, then a ligature's halves, whose lam has a width of its
    // own.
    DrawnPage page;
    const auto add = [&](char32_t letter, double left, double right) {
        page.addCharacter(letter, {left, 0, right, 12});
    };
    add(U'\u0644', 0, 3.3);
    add(U'\u0627', 3.3, 6.35);
    page.addCharacter(U' ', {6.35, 0, 10, 12});
    add(U'\u0643', 10, 16);
    add(U'\u0644', 16, 19.3);
    page.addCharacter(U' ', {19.3, 0, 23, 12});
    add(U'\u0644', 23, 26.13);
    add(U'\u0627', 26.13, 29.26);
    EXPECT_EQ(textOf(page), "\u0644\u0627 \u0644\u0643 \u0627\u0644\n");
}

TEST(PdfPageLayout, PutsMarksOnTheLettersThatTheyStandOn) {
    DrawnPage page = {{0, 0, U"\u05D2\u05D1\u05D0"}};
    page.addCharacter(U'\n', {0, 0, 0, 0});
    page.addCharacter(U'\u05B8', {7, 3, 8, 15});
    EXPECT_EQ(textOf(page), "\u05D0\u05D1\u05B8\u05D2\n");
}

TEST(PdfPageLayout, WritesCharactersAsUnicodeWouldHaveThem) {
    expectTexts({
        {"Latin ligatures",
         {{0, 0, U"o\uFB03ce, \uFB01nd \uFB02at \uFB06op"}},
         "office, find flat stop\n"},
        {"a letter and a mark", {{0, 0, U"a\u0303 u\u0308ber"}}, "\u00E3 \u00FCber\n"},
        {"two marks", {{0, 0, U"e\u0302\u0301"}}, "\u1EBF\n"},
        {"a letter and a mark that make no character", {{0, 0, U"x\u0303"}}, "x\u0303\n"},
        {"codes for private use", {{0, 0, U"\uF0B7 ab\U000F0001"}}, "ab\n"},
        {"control characters and marks of direction", {{0, 0, U"\x01\u200E ab\u202B"}}, "ab\n"},
        {"characters above the first plane",
         {{0, 0, U"\U0001F600\U00020000"}},
         "\U0001F600\U00020000\n"},
        {"lone surrogates", {{0, 0, std::u32string{U'a', 0xD800, U'b'}}}, "ab\n"},
        {"an Arabic form", {{0, 0, U"\uFE8E\uFE91"}}, "\u0628\u0627\n"},
        {"an Arabic mark that stands alone", {{0, 0, U"\uFE8F\uFE70"}}, "\u064B\u0628\n"},
    });
}

TEST(PdfPageLayout, KeepsTheFontOfEachCharacter) {
    DrawnPage page;
    page.add({0, 0, U"Plain ", 10, "Times-Roman"});
    const AttributedString text = attributedStringFromPdfPage(DrawnPage{
        {0, 0, U"Heading", 14, "Times-Bold"},
        {0, 30, U"Text", 10, "Times-Roman"}}.text());
    ASSERT_EQ(text.string(), u"Heading\nText\n");
    ASSERT_EQ(text.runs().size(), 2U);
    const auto fontOf = [&](std::size_t run) {
        return std::dynamic_pointer_cast<const Font>(
            text.runs()[run].attributes->find("NSFont")->object());
    };
    EXPECT_EQ(text.runs()[0].length, 8U);
    EXPECT_EQ(fontOf(0)->fontName(), "Times-Bold");
    EXPECT_EQ(fontOf(0)->pointSize(), 14);
    EXPECT_EQ(fontOf(1)->fontName(), "Times-Roman");
}

TEST(PdfPageLayout, TakesAnyBoxes) {
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    const double odd[] = {0, -1, NAN, kInfinite, -kInfinite, 1e300, 1e-300, 5e6, -5e6, 0.1};
    DrawnPage page;
    for (const double left : odd) {
        for (const double top : odd) {
            for (const double right : odd) {
                page.addCharacter(U'x', {left, top, right, -top});
            }
            page.addCharacter(top > 0 ? U' ' : U'\n', {left, top, NAN, 0});
        }
    }
    const std::u16string text = attributedStringFromPdfPage(page.text()).string();
    EXPECT_EQ(std::count(text.begin(), text.end(), u'x'), 1000);
}

TEST(PdfPageLayout, TakesACharacterWithoutABox) {
    const char32_t characters[] = {U'a', U'b', U'c'};
    const PdfBox boxes[] = {{0, 0, 5, 12}};
    const AttributedString text = attributedStringFromPdfPage({characters, boxes, {}});
    EXPECT_EQ(text.length(), 4U);
    EXPECT_EQ(text.runs().size(), 1U);
}

}  // namespace
}  // namespace platform
