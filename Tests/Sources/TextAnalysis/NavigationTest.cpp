// The navigation of TextAnalyzeUtils.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <thread>
#include <vector>

#include "Platform/Foundation/IdleResources.h"
#include "Platform/Text/SubstringEnumeration.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"
#include "Tests/Support/Segments.h"

namespace parlavox {
namespace {

using Utils = TextAnalyzeUtils;

constexpr unsigned kReverse = 0x100;
constexpr unsigned kParagraphs = 1;
constexpr unsigned kWords = 3;
constexpr unsigned kSentences = 4;

constexpr std::u16string_view kThreeWords = u"One two three";

using Operation = Range (*)(std::u16string_view, Range);

TEST(Navigation, GoesFromWordToWord) {
    struct Row {
        const char* name;
        Operation operation;
        Range from;
        Range want;
    };
    constexpr Row kRows[] = {
        {"current at a word's start", Utils::rangeOfCurrentWordInString, {4, 0}, {4, 3}},
        {"next at a word's start", Utils::rangeOfNextWordInString, {4, 0}, {8, 5}},
        {"previous at a word's start is the one before",
         Utils::rangeOfPreviousWordInString,
         {4, 0},
         {0, 3}},
        {"previous inside a word is its start", Utils::rangeOfPreviousWordInString, {5, 0}, {4, 3}},
        {"current behind a word is still it", Utils::rangeOfCurrentWordInString, {3, 0}, {0, 3}},
        {"current at 0", Utils::rangeOfCurrentWordInString, {0, 0}, {0, 3}},
        {"previous at 0", Utils::rangeOfPreviousWordInString, {0, 0}, NotFoundRange},
        {"previous at the end is the last", Utils::rangeOfPreviousWordInString, {13, 0}, {8, 5}},
        {"current at the end", Utils::rangeOfCurrentWordInString, {13, 0}, NotFoundRange},
        {"next at the end", Utils::rangeOfNextWordInString, {13, 0}, NotFoundRange},
        {"next at the last", Utils::rangeOfNextWordInString, {9, 0}, NotFoundRange},
        {"current of a selection is its first", Utils::rangeOfCurrentWordInString, {1, 6}, {0, 3}},
        {"next of a selection is behind its first", Utils::rangeOfNextWordInString, {1, 6}, {4, 3}},
        {"previous of a selection is its last", Utils::rangeOfPreviousWordInString, {1, 8}, {8, 5}},
        {"beyond the end", Utils::rangeOfCurrentWordInString, {14, 1}, NotFoundRange},
        {"current at 0 of a blank beginning", Utils::rangeOfCurrentWordInString, {0, 1}, {0, 3}},
        {"previous beyond the end", Utils::rangeOfPreviousWordInString, {14, 0}, NotFoundRange},
        {"not found", Utils::rangeOfCurrentWordInString, NotFoundRange, NotFoundRange},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.operation(kThreeWords, row.from), row.want);
    }
}

TEST(Navigation, GoesFromSentenceToSentence) {
    constexpr std::u16string_view kText = u"One is. Two are.  Three were.";
    EXPECT_EQ(Utils::rangeOfCurrentSentenceInString(kText, {9, 0}), (Range{8, 8}));
    EXPECT_EQ(Utils::rangeOfNextSentenceInString(kText, {9, 0}), (Range{18, 11}));
    EXPECT_EQ(Utils::rangeOfPreviousSentenceInString(kText, {9, 0}), (Range{8, 8}));
    EXPECT_EQ(Utils::rangeOfPreviousSentenceInString(kText, {8, 0}), (Range{0, 7}));
    EXPECT_EQ(Utils::rangeOfPreviousSentenceInString(kText, {29, 0}), (Range{18, 11}));
    // A selection of two: the first one forwards, the second one backwards.
    EXPECT_EQ(Utils::rangeOfCurrentSentenceInString(kText, {2, 10}), (Range{0, 7}));
    EXPECT_EQ(Utils::rangeInString(kText, {2, 10}, kSentences | kReverse, false), (Range{8, 8}));
}

TEST(Navigation, BackwardsFromTheEndTakesTheLastUnitThatIsNotBlank) {
    constexpr std::u16string_view kText = u"one\ntwo\n \n";
    for (const bool findNext : {false, true}) {
        EXPECT_EQ(Utils::rangeInString(kText, {10, 0}, kParagraphs | kReverse, findNext),
                  (Range{4, 3}));
        EXPECT_EQ(Utils::rangeInString(kThreeWords, {13, 0}, kWords | kReverse, findNext),
                  (Range{8, 5}));
    }
    EXPECT_EQ(Utils::rangeInString(kThreeWords, {4, 0}, kWords | kReverse, false), (Range{4, 3}));
    EXPECT_EQ(Utils::rangeOfCurrentParagraphInString(u"\none", {0, 0}), (Range{1, 3}));
    EXPECT_EQ(Utils::rangeOfCurrentSentenceInString(kText, {10, 0}), NotFoundRange);
}

TEST(Navigation, GoesOverBlankParagraphs) {
    constexpr std::u16string_view kText = u"one\n\n \t\ntwo\n";
    EXPECT_EQ(Utils::rangeOfCurrentParagraphInString(kText, {4, 0}), (Range{8, 3}));
    EXPECT_EQ(Utils::rangeOfNextParagraphInString(kText, {0, 0}), (Range{8, 3}));
    EXPECT_EQ(Utils::rangeOfPreviousParagraphInString(kText, {8, 0}), (Range{0, 3}));
    EXPECT_EQ(Utils::rangeOfPreviousParagraphInString(kText, {6, 0}), (Range{0, 3}));
    EXPECT_EQ(Utils::rangeOfPreviousParagraphInString(kText, {12, 0}), (Range{8, 3}));
    EXPECT_EQ(Utils::rangeOfNextParagraphInString(kText, {8, 0}), NotFoundRange);
}

TEST(Navigation, KnowsWordsSentencesAndParagraphsAlone) {
    for (const unsigned unit : {0U, 2U, 5U, 6U, 7U, 0xFFU}) {
        EXPECT_EQ(Utils::rangeInString(kThreeWords, {4, 0}, unit, false), NotFoundRange) << unit;
    }
    // All bits but the unit and the reverse flag are dropped.
    EXPECT_EQ(Utils::rangeInString(kThreeWords, {4, 0}, 0xFFFFFE03, true), (Range{8, 5}));
}

TEST(Navigation, FindsNothingWhereThereIsNothing) {
    for (const unsigned unit : {kParagraphs, kWords, kSentences}) {
        for (const unsigned options : {unit, unit | kReverse}) {
            EXPECT_EQ(Utils::rangeInString(u"", {0, 0}, options, false), NotFoundRange);
            EXPECT_EQ(Utils::rangeInString(u" \n \n", {1, 0}, options, false), NotFoundRange);
            EXPECT_EQ(Utils::rangeInString(u" \n \n", {4, 0}, options, true), NotFoundRange);
        }
    }
}

TEST(IsStringEmpty, IsTrueWithoutAVisibleCharacter) {
    EXPECT_TRUE(Utils::isStringEmpty(std::nullopt));
    EXPECT_TRUE(Utils::isStringEmpty(u""));
    EXPECT_TRUE(Utils::isStringEmpty(u" \t\r\n\u2028\u3000\u200B"));
    EXPECT_FALSE(Utils::isStringEmpty(u" . "));
    EXPECT_FALSE(Utils::isStringEmpty(u"\uFEFF"));
}

/// The search as it is described: a walk over all units of the text.
Range literalSearch(std::u16string_view string, Range from, unsigned options, bool findNext) {
    if (from == NotFoundRange) {
        return NotFoundRange;
    }
    bool found = (options & kReverse) != 0 && from.length == 0 && from.location == string.size();
    Range result = NotFoundRange;
    platform::enumerateSubstringsInRange(
        string, {0, string.size()}, options,
        [&](const platform::EnumeratedSubstring& unit, bool& stop) {
            if (!found) {
                if (PVIntersectionRange(unit.enclosingRange, from) == NotFoundRange) {
                    return;
                }
                found = true;
                if (findNext) {
                    return;
                }
            }
            if (!Utils::isStringEmpty(unit.substring)) {
                result = unit.substringRange;
                stop = true;
            }
        });
    return result;
}

std::u16string randomText(std::mt19937& random, int mostPieces) {
    static constexpr std::u16string_view kPieces[] = {
        u"word",
        u"it's",
        u" ",
        u"  ",
        u". ",
        u"? ",
        u"\n",
        u"\r\n",
        u"\r",
        u"\u2029",
        u"\u2028",
        u"\u0085",
        u", ",
        u"3.14",
        u"a:b",
        u"毎晩登りました",
        u"。",
        u"สวัสดีชาวโลก",
        u"안녕 ",
        u"\u05E9\u05DC\u05D5\u05DD ",
        u"नमस्ते ",
        u"\U0001F600",
        u"\U0001F468\u200D\U0001F469",
        u"\U0001D400\U0001D401",
        u"e\u0301",
        u"\u00A0",
        u"\u200B",
        u"Mr. ",
        u"-",
        u"_",
    };
    std::u16string text;
    const auto count = std::uniform_int_distribution(0, mostPieces)(random);
    for (int i = 0; i < count; ++i) {
        const auto last = std::size(kPieces) + 1;
        const auto choice = std::uniform_int_distribution<std::size_t>(0, last)(random);
        if (choice >= std::size(kPieces)) {
            text += choice == last ? u'\xD83D' : u'\xDE00';
        } else {
            text += kPieces[choice];
        }
    }
    return text;
}

TEST(Navigation, EqualsTheWalkOverAllUnitsForEveryRange) {
    std::mt19937 random(20261120);
    for (int i = 0; i < 150; ++i) {
        const std::u16string text = randomText(random, 14);
        SCOPED_TRACE(platform::utf8FromUtf16(text));
        for (std::uint64_t location = 0; location <= text.size() + 1; ++location) {
            const std::uint64_t most = text.size() + 2 - location;
            std::vector<std::uint64_t> lengths{~0ULL - location, ~0ULL, 0 - location};
            for (std::uint64_t length = 0; length <= most; length += length < 6 ? 1 : 5) {
                lengths.push_back(length);
            }
            for (const std::uint64_t length : lengths) {
                for (const unsigned unit : {kParagraphs, kWords, kSentences}) {
                    for (const unsigned options : {unit, unit | kReverse}) {
                        for (const bool findNext : {false, true}) {
                            const Range from{location, length};
                            ASSERT_EQ(Utils::rangeInString(text, from, options, findNext),
                                      literalSearch(text, from, options, findNext))
                                << location << ", " << length << ", " << options << ", "
                                << findNext;
                        }
                    }
                }
            }
        }
    }
}

TEST(Navigation, EqualsTheWalkInLongTexts) {
    std::mt19937 random(17);
    for (int i = 0; i < 12; ++i) {
        const std::u16string text = randomText(random, 900);
        std::uniform_int_distribution<std::uint64_t> location(0, text.size());
        for (int question = 0; question < 60; ++question) {
            const Range from{location(random), question % 3 == 0 ? location(random) : 0};
            for (const unsigned unit : {kParagraphs, kWords, kSentences}) {
                for (const unsigned options : {unit, unit | kReverse}) {
                    const bool findNext = question % 2 == 0;
                    ASSERT_EQ(Utils::rangeInString(text, from, options, findNext),
                              literalSearch(text, from, options, findNext))
                        << platform::utf8FromUtf16(text) << from.location << ", " << from.length
                        << ", " << options;
                }
            }
        }
    }
}

TEST(Navigation, ThreadsDoNotMeet) {
    std::mt19937 random(4);
    const std::u16string text = randomText(random, 60);
    std::vector<Range> want;
    const auto ask = [&](std::vector<Range>& answers) {
        for (std::uint64_t location = 0; location <= text.size(); ++location) {
            for (const Operation operation :
                 {Utils::rangeOfCurrentWordInString, Utils::rangeOfNextWordInString,
                  Utils::rangeOfPreviousWordInString, Utils::rangeOfCurrentSentenceInString,
                  Utils::rangeOfNextSentenceInString, Utils::rangeOfPreviousSentenceInString,
                  Utils::rangeOfCurrentParagraphInString, Utils::rangeOfNextParagraphInString,
                  Utils::rangeOfPreviousParagraphInString}) {
                answers.push_back(operation(text, {location, 0}));
            }
        }
    };
    ask(want);
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            std::vector<Range> answers;
            ask(answers);
            EXPECT_EQ(answers, want);
            platform::releaseIdleResources();
            EXPECT_EQ(Utils::languageSegmentsForString(text, std::nullopt).has_value(),
                      Utils::languageCodeForString(text, 0, std::nullopt).has_value());
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace parlavox
