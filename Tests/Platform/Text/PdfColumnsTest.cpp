#include "Platform/Text/PdfColumns.h"

#include <gtest/gtest.h>

#include "Tests/Support/DrawnPage.h"
#include "Tests/Support/DrawnTexts.h"

namespace platform {
namespace {

using test::DrawnPage;
using test::expectTexts;
using test::textOf;

TEST(PdfColumns, ReadsColumnsOneAfterTheOther) {
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

/// Two columns of four lines, the right one's `shift` farther down.
DrawnPage columnsApart(double leading, double shift) {
    const char32_t* const left[] = {U"left column begins", U"and goes on and on",
                                    U"for so many lines,", U"until it is hyphen-"};
    const char32_t* const right[] = {U"ated in the other", U"and goes on as th",
                                     U"one beside it did", U"left one has done"};
    DrawnPage page;
    for (int i = 0; i < 4; i++) {
        page.add({0, leading * i, left[i]});
        page.add({110, leading * i + shift, right[i]});
    }
    return page;
}

TEST(PdfColumns, ReadsColumnsWhoseLinesStandAtOtherHeights) {
    for (const double leading : {10.5, 12.0, 14.0, 16.0, 18.0}) {
        for (int share = -95; share < 100; share += 5) {
            SCOPED_TRACE(leading);
            SCOPED_TRACE(share);
            EXPECT_EQ(textOf(columnsApart(leading, leading * share / 100)),
                      "left column begins and goes on and on for so many lines, until it is "
                      "hyphen- ated in the other and goes on as th one beside it did left one has "
                      "done\n");
        }
    }
}

TEST(PdfColumns, ReadsWhatOnlyStandsBelowOneAnotherByItsLines) {
    expectTexts({
        {"a term and its meaning",
         {{0, 0, U"a term as such"},
          {100, 12, U"its meaning is here"},
          {0, 24, U"the other one."},
          {100, 36, U"what that one means"}},
         "a term as such\nits meaning is here the other one.\nwhat that one means\n"},
        {"a sender on the right above an address",
         {{150, 0, U"Anna Miller, Esq."},
          {150, 12, U"17 Kings Road, NY"},
          {0, 24, U"Mr. Bert Smith Jr"},
          {0, 36, U"4 Queens Rd, Town"}},
         "Anna Miller, Esq. 17 Kings Road, NY\nMr. Bert Smith Jr\n4 Queens Rd, Town\n"},
    });
}

TEST(PdfColumns, GoesOnWithAWordInTheNextColumn) {
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

TEST(PdfColumns, ReadsATableByItsRows) {
    const DrawnPage page = {
        {0, 0, U"Berlin"},  {80, 0, U"1,234"},  {160, 0, U"DE"},
        {0, 20, U"Vienna"}, {80, 20, U"56"},    {160, 20, U"AT"},
        {0, 40, U"Paris"},  {80, 40, U"7,890"}, {160, 40, U"FR"},
    };
    EXPECT_EQ(textOf(page), "Berlin 1,234 DE\nVienna 56 AT\nParis 7,890 FR\n");
}

}  // namespace
}  // namespace platform
