#include "Platform/Text/PdfDirection.h"

#include <gtest/gtest.h>

#include "Tests/Support/DrawnTexts.h"

namespace platform {
namespace {

using test::expectTexts;

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

}  // namespace
}  // namespace platform
