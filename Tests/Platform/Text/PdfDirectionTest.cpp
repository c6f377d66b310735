#include "Platform/Text/PdfDirection.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "Platform/Foundation/Unicode.h"
#include "Tests/Support/DrawnPage.h"
#include "Tests/Support/DrawnTexts.h"

namespace platform {
namespace {

using test::DrawnPage;
using test::expectTexts;
using test::textOf;

TEST(PdfDirection, ReadsFromTheRightWhatIsWrittenSo) {
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

/// A line of two words with something between them, as it stands on the page, and as it is read.
struct BetweenWords {
    const char* name;
    const char32_t* stands;
    const char* read;
};

void expectBetween(char32_t first, char32_t last, std::initializer_list<BetweenWords> rows) {
    for (const BetweenWords& row : rows) {
        SCOPED_TRACE(row.name);
        const DrawnPage page = {
            {0, 0, std::u32string(5, last) + U' ' + row.stands + U' ' + std::u32string(5, first)}};
        const auto word = [](char32_t letter) {
            return utf8FromUtf16(std::u16string(5, static_cast<char16_t>(letter)));
        };
        EXPECT_EQ(textOf(page), word(first) + ' ' + row.read + ' ' + word(last) + '\n');
    }
}

TEST(PdfDirection, KeepsSignsAtNumbersBetweenHebrewWords) {
    expectBetween(U'\u05D0', U'\u05D1',
                  {
                      {"per cent", U"50%", "50%"},
                      {"per cent before the number", U"%50", "%50"},
                      {"a currency before the number", U"$50", "$50"},
                      {"a currency behind it", U"50\u20AA", "50\u20AA"},
                      {"a minus", U"-5", "-5"},
                      {"a minus that stands behind", U"5-", "-5"},
                      {"a minus before a currency", U"-$1,250.75", "-$1,250.75"},
                      {"a date", U"12-05-2020", "12-05-2020"},
                      {"a time", U"12:30", "12:30"},
                      {"numbers with a dash between them", U"1995\u20131990", "1990\u20131995"},
                      {"two numbers", U"34 12", "12 34"},
                      {"two numbers with signs", U"34% $12", "$12 34%"},
                      {"a hyphen at a word", U"5-\u05D2\u05D2", "\u05D2\u05D2-5"},
                      {"a hyphen behind a number", U"\u05D2\u05D2-5", "5-\u05D2\u05D2"},
                      {"brackets", U"(50%)", "(50%)"},
                      {"two separators", U"34..12", "12..34"},
                      {"a name with signs", U"++C", "C++"},
                      {"a name and a share", U"word 50%", "word 50%"},
                      {"signs alone", U"% -", "- %"},
                  });
}

TEST(PdfDirection, TurnsSignsAtNumbersBetweenArabicWords) {
    expectBetween(U'\u0633', U'\u0628',
                  {
                      {"per cent", U"%50", "50%"},
                      {"a currency", U"50$", "$50"},
                      {"a minus", U"5-", "-5"},
                      {"a date with hyphens", U"12-05-2020", "2020-05-12"},
                      {"a date with strokes", U"12/05/2020", "12/05/2020"},
                      {"a number with a fraction", U"1,250.75", "1,250.75"},
                      {"Arabic digits", U"\u0661\u0662/\u0665", "\u0661\u0662/\u0665"},
                      {"Arabic digits and per cent", U"\u066A\u0661\u0662", "\u0661\u0662\u066A"},
                      {"a name and a share", U"word 50%", "word 50%"},
                  });
}

TEST(PdfDirection, ReadsNumbersAtTheEndsOfLines) {
    expectTexts({
        {"Hebrew, at its start", {{0, 0, U"\u05D1\u05D0 50%"}}, "50% \u05D0\u05D1\n"},
        {"Hebrew, at its end", {{0, 0, U"50% \u05D1\u05D0"}}, "\u05D0\u05D1 50%\n"},
        {"Hebrew, with a hyphen behind it", {{0, 0, U"-5 \u05D1\u05D0"}}, "\u05D0\u05D1 5-\n"},
        {"Arabic, at its start", {{0, 0, U"\u0628\u0633 %50"}}, "50% \u0633\u0628\n"},
        {"Arabic, at its end", {{0, 0, U"%50 \u0628\u0633"}}, "\u0633\u0628 50%\n"},
        {"a number alone on a page of Hebrew",
         {{0, 0, U"\u05D1\u05D0"}, {0, 40, U"-50%"}},
         "\u05D0\u05D1\n-50%\n"},
        {"Hebrew in a line of another script",
         {{0, 0, U"Words with \u05D1\u05D0 50% \u05D3\u05D2 in them"}},
         "Words with \u05D2\u05D3 50% \u05D0\u05D1 in them\n"},
    });
}

}  // namespace
}  // namespace platform
