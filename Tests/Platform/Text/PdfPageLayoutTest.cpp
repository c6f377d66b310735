#include "Platform/Text/PdfPageLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "Platform/Text/Font.h"
#include "Tests/Support/DrawnPage.h"
#include "Tests/Support/DrawnTexts.h"

namespace platform {
namespace {

using test::DrawnPage;
using test::expectTexts;
using test::textOf;

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

TEST(PdfPageLayout, PutsATallCapitalBeforeTheFirstLineBesideIt) {
    expectTexts({
        {"as tall as three lines",
         {{0, 0, U"O", 36},
          {22, 0, U"nce upon a time it was"},
          {22, 12, U"so that two more lines"},
          {22, 24, U"stood beside the large"},
          {0, 36, U"letter that began them all"}},
         "Once upon a time it was so that two more lines stood beside the large letter that began "
         "them all\n"},
        {"as tall as two",
         {{0, 0, U"\u201CT", 24},
          {29, 0, U"he house stood on a"},
          {29, 12, U"hill and looked ov-"},
          {0, 24, U"er all that was around it"},
          {0, 36, U"for so many a long year"},
          {10, 48, U"and the next paragraph"},
          {0, 60, U"begins a bit farther in"}},
         "\u201CThe house stood on a hill and looked ov- er all that was around it for so many a "
         "long year\nand the next paragraph begins a bit farther in\n"},
        {"that stands higher than its line",
         {{0, 0, U"R", 30},
          {17, 20, U"aised above its line as"},
          {0, 32, U"it is in some old books"}},
         "Raised above its line as it is in some old books\n"},
        {"but a number stands alone",
         {{0, 0, U"7", 24}, {15, 0, U"things that are on a"}, {15, 12, U"list, and more of it"}},
         "7 things that are on a list, and more of it\n"},
    });
}

TEST(PdfPageLayout, LetsNoHugeCharacterSwallowOthers) {
    const DrawnPage page = {{0, 0, U"X", 500}, {60, 250, U"words"}, {60, 280, U"others"}};
    EXPECT_EQ(textOf(page), "words\nothers\nX\n");
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

TEST(PdfPageLayout, PutsTextOfOtherDirectionsBeforeAWordThatGoesOnOnTheNextPage) {
    DrawnPage two = {{50, 0, U"First paragraph of the page"},
                     {50, 30, U"and one more that is hyphen"},
                     {50, 42, U"ated where the page is end-"}};
    two.addUp({0, 300, U"margin"});
    EXPECT_EQ(
        textOf(two),
        "First paragraph of the page\nmargin\nand one more that is hyphen ated where the page "
        "is end- ");
    DrawnPage one = {{50, 0, U"Only paragraph of a page"}, {50, 12, U"whose last word is hyphen-"}};
    one.addUp({0, 300, U"margin-"});
    EXPECT_EQ(textOf(one), "margin-\nOnly paragraph of a page whose last word is hyphen- ");
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
        {"radicals that look like ideographs",
         {{0, 0, U"\u2F08\u2F24 \u2EF3\u2E9F"}},
         "\u4EBA\u5927 \u9F9F\u6BCD\n"},
        {"radicals that look like none", {{0, 0, U"\u2E81\u2F24"}}, "\u2E81\u5927\n"},
        {"lone surrogates", {{0, 0, std::u32string{U'a', 0xD800, U'b'}}}, "ab\n"},
        {"an Arabic form", {{0, 0, U"\uFE8E\uFE91"}}, "\u0628\u0627\n"},
        {"an Arabic mark that stands alone", {{0, 0, U"\uFE8F\uFE70"}}, "\u064B\u0628\n"},
    });
}

TEST(PdfPageLayout, KeepsTheFontOfEachCharacter) {
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
