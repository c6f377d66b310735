// The language at one position.

#include <gtest/gtest.h>

#include <string>

#include "Platform/Foundation/Exception.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"

namespace parlavox {
namespace {

using Utils = TextAnalyzeUtils;

// Sentences begin at                 0              15       24  28       37
constexpr std::u16string_view kText = u"The first one. Is here. No. Not yet. The last of them.";

std::uint64_t start(std::u16string_view text, std::uint64_t target) {
    return Utils::startLocationForDeterminingLanguageSegmentsForString(text, target);
}

std::uint64_t end(std::u16string_view text, std::uint64_t location, std::uint64_t from) {
    return Utils::endLocationForDeterminingLanguageSegmentsForString(text, location, from);
}

TEST(LanguageSpan, BeginsBehindTheNearestLongSentenceBefore) {
    struct Row {
        const char* name;
        std::u16string_view text;
        std::uint64_t target;
        std::uint64_t want;
    };
    constexpr Row kRows[] = {
        {"at the start", kText, 0, 0},
        {"ten characters in", kText, 10, 0},
        {"in the first sentence", kText, 12, 0},
        {"behind a long one", kText, 16, 15},
        {"short ones between are passed over", kText, 40, 15},
        {"the end of the text before the target is not seen", kText, 53, 15},
        {"blank ones between are passed over", u"The first one.\n\n\n\nAnd so on.", 20, 15},
        {"only short ones before", u"No. No. No. No. No. No.", 20, 0},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(start(row.text, row.target), row.want);
    }
}

TEST(LanguageSpan, EndsBehindTheFirstLongSentenceThatEndsBehindTheLocation) {
    struct Row {
        const char* name;
        std::u16string_view text;
        std::uint64_t location;
        std::uint64_t start;
        std::uint64_t want;
    };
    constexpr Row kRows[] = {
        {"in the first sentence", kText, 3, 0, 15},
        {"its last blank is its own", kText, 14, 0, 15},
        {"a run of short sentences that is long enough", kText, 16, 15, 28},
        {"the run ends before the location", kText, 30, 15, 54},
        {"no long one behind", u"The first one. No.", 16, 0, 18},
        {"nothing", u"", 0, 0, 0},
        {"blank ones are passed over", u"\n\nNo.\n\n\n\nThe first one. No.", 0, 0, 24},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(end(row.text, row.location, row.start), row.want);
    }
}

TEST(LanguageSpan, OfAPlaceOutsideOfTheTextIsARangeError) {
    EXPECT_THROW((void)start(kText, kText.size()), platform::RangeException);
    EXPECT_THROW((void)start(kText, ~std::uint64_t{0}), platform::RangeException);
    EXPECT_THROW((void)end(kText, 0, kText.size() + 1), platform::RangeException);
    EXPECT_EQ(start(u"", 10), 0u) << "the first ten need no text";
}

constexpr std::u16string_view kEnglish = u"Every evening the keeper climbed two hundred steps. ";
constexpr std::u16string_view kGreek = u"Κάθε βράδυ ο φύλακας ανέβαινε διακόσια σκαλιά. ";
constexpr std::u16string_view kHebrew = u"מדי ערב טיפס השומר במאתיים מדרגות. ";
constexpr std::u16string_view kNumbers = u"12345 67890 12345. ";

std::u16string joined(std::initializer_list<std::u16string_view> pieces) {
    std::u16string text;
    for (const std::u16string_view piece : pieces) {
        text += piece;
    }
    return text;
}

TEST(LanguageCodeForString, LooksAtThePlaceThenBeforeAndThenBehind) {
    const std::u16string text = joined({kNumbers, kNumbers, kGreek, kNumbers, kNumbers, kHebrew});
    const std::uint64_t greek = 2 * kNumbers.size();
    const std::uint64_t hebrew = text.size() - kHebrew.size();
    struct Row {
        const char* name;
        std::uint64_t location;
        const char* want;
    };
    const Row rows[] = {
        {"before any language: the next one behind", 0, "el"},
        {"still before", greek - 2, "el"},
        {"in the sentence", greek + 5, "el"},
        {"behind it: the one before", hebrew - 5, "el"},
        {"in the other sentence", hebrew + 3, "he"},
        {"at the last character", text.size() - 1, "he"},
        {"at the end, which stands for the last character", text.size(), "he"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Utils::languageCodeForString(text, row.location, std::nullopt), row.want);
    }
    EXPECT_EQ(Utils::languageCodeForString(text, greek + 5, {{"he"}}), "he");
    EXPECT_EQ(Utils::languageCodeForString(text, hebrew + 3, {{"el", "en"}}), "el");
}

TEST(LanguageCodeForString, FindsNothingWhereThereIsNone) {
    EXPECT_EQ(Utils::languageCodeForString(u"", 0, std::nullopt), std::nullopt);
    EXPECT_EQ(Utils::languageCodeForString(kEnglish, kEnglish.size() + 1, std::nullopt),
              std::nullopt);
    EXPECT_EQ(Utils::languageCodeForString(joined({kNumbers, kNumbers}), 25, std::nullopt),
              std::nullopt);
    EXPECT_EQ(Utils::languageCodeForString(kEnglish, 3, {{"de"}}), std::nullopt);
    EXPECT_EQ(Utils::languageCodeForString(kEnglish, 3, {{"en"}}), "en");
}

}  // namespace
}  // namespace parlavox
