// Which languages a text is cut into.
//
// Most texts are in scripts that one language owns, so that what is tested is the cutting.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Sources/TextAnalysis/TextAnalyzeUtils.h"
#include "Tests/Support/Segments.h"

namespace parlavox {
namespace {

using Utils = TextAnalyzeUtils;

constexpr std::u16string_view kEnglish =
    u"Every evening the keeper climbed two hundred steps and lit the lamp. ";
constexpr std::u16string_view kGerman =
    u"Jeden Abend stieg der Wärter zweihundert Stufen hinauf und zündete die Lampe an. ";
constexpr std::u16string_view kGreek = u"Κάθε βράδυ ο φύλακας ανέβαινε διακόσια σκαλιά. ";
constexpr std::u16string_view kHebrew = u"מדי ערב טיפס השומר במאתיים מדרגות. ";
constexpr std::u16string_view kShortHebrew = u"לא. ";
constexpr std::u16string_view kNumbers = u"12345 67890 12345. ";

struct Stretch {
    std::u16string text;
    std::string language;
};

std::u16string joined(std::initializer_list<std::u16string_view> pieces) {
    std::u16string text;
    for (const std::u16string_view piece : pieces) {
        text += piece;
    }
    return text;
}

/// The text of each segment with its language, after a check that they tile the text.
std::vector<std::pair<std::string, std::string>> segmentsOf(std::u16string_view text,
                                                            const AllowedLanguages& allowed) {
    std::vector<std::pair<std::string, std::string>> found;
    std::uint64_t position = 0;
    const auto segments = Utils::languageSegmentsForString(text, allowed);
    for (const auto& segment : segments.value()) {
        EXPECT_EQ(segment->range.location, position);
        position = segment->range.end();
        const std::u16string_view part =
            text.substr(segment->range.location, segment->range.length);
        found.emplace_back(platform::utf8FromUtf16(part), segment->languageCode.value_or("none"));
    }
    EXPECT_EQ(position, text.size());
    return found;
}

TEST(LanguageSegments, TileTheTextAndNeighboursDiffer) {
    struct Row {
        const char* name;
        std::vector<Stretch> want;
    };
    const Row rows[] = {
        {"one language", {{joined({kEnglish, kEnglish, kEnglish}), "en"}}},
        {"languages in turn",
         {{std::u16string(kEnglish), "en"},
          {std::u16string(kGerman), "de"},
          {std::u16string(kGreek), "el"},
          {joined({kEnglish, kEnglish}), "en"}}},
        {"a short sentence goes with what follows",
         {{std::u16string(kGreek), "el"}, {joined({kShortHebrew, kEnglish}), "en"}}},
        {"a short one at the end goes with what precedes",
         {{joined({kGreek, kShortHebrew}), "el"}}},
        {"short ones alone are one stretch", {{joined({kShortHebrew, kShortHebrew}), "he"}}},
        {"short ones together are long enough",
         {{std::u16string(kGreek), "el"},
          {joined({kShortHebrew, kShortHebrew, kShortHebrew}), "he"},
          {std::u16string(kEnglish), "en"}}},
        {"no language takes that of what precedes",
         {{joined({kGreek, kNumbers}), "el"}, {std::u16string(kEnglish), "en"}}},
        {"at the start it takes the first there is",
         {{joined({kNumbers, kNumbers, kGreek}), "el"}, {std::u16string(kEnglish), "en"}}},
        {"behind a blank sentence a short one stands alone, by intention",
         {{std::u16string(kGreek) + u'\n', "el"},
          {u"\n" + std::u16string(kShortHebrew), "he"},
          {std::u16string(kEnglish), "en"}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        std::u16string text;
        std::vector<std::pair<std::string, std::string>> want;
        for (const Stretch& stretch : row.want) {
            text += stretch.text;
            want.emplace_back(platform::utf8FromUtf16(stretch.text), stretch.language);
        }
        EXPECT_EQ(segmentsOf(text, std::nullopt), want);
    }
}

TEST(LanguageSegments, AreOfAllowedLanguagesAlone) {
    const std::u16string text = joined({kGreek, kEnglish, kHebrew});
    const std::string all = platform::utf8FromUtf16(text);
    using Segments = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(segmentsOf(text, {{"en"}}), (Segments{{all, "en"}}));
    EXPECT_EQ(segmentsOf(text, {{"de", "he"}}), (Segments{{all, "he"}}));
    EXPECT_EQ(segmentsOf(text, {{"he", "el"}}),
              (Segments{{platform::utf8FromUtf16(joined({kGreek, kEnglish})), "el"},
                        {platform::utf8FromUtf16(kHebrew), "he"}}));
}

TEST(LanguageSegments, AreNotThereWithoutAnAcceptableLanguage) {
    for (const std::u16string_view text : {std::u16string_view(), std::u16string_view(u" \n "),
                                           kNumbers, std::u16string_view(u"... !? \U0001F600")}) {
        EXPECT_FALSE(Utils::languageSegmentsForString(text, std::nullopt));
    }
    for (const AllowedLanguages& allowed :
         {AllowedLanguages{{"de", "fr"}}, AllowedLanguages{{"en_US"}},
          AllowedLanguages{std::vector<std::string>()}}) {
        EXPECT_FALSE(Utils::languageSegmentsForString(kEnglish, allowed));
    }
}

TEST(LanguageForLanguageWithCode, IsTheFirstAllowedOneThatTheCodeBeginsWith) {
    struct Row {
        const char* code;
        std::vector<std::string> allowed;
        std::optional<std::string> want;
    };
    const Row rows[] = {
        {"en", {"en"}, "en"},
        {"en-GB", {"de", "en"}, "en"},
        {"en_US", {"en"}, "en"},
        {"en1", {"en"}, "en"},
        {"eng", {"en"}, std::nullopt},
        {"en\u00E9", {"en"}, std::nullopt},
        {"en\u0301", {"en"}, std::nullopt},
        {"en\U0001D400", {"en"}, "en"},
        {"zh-Hans", {"zh"}, "zh"},
        {"zh-Hans", {"zh-Hant", "zh-Hans", "zh"}, "zh-Hans"},
        {"en", {"en_US"}, std::nullopt},
        {"EN", {"en"}, std::nullopt},
        {"en", {}, std::nullopt},
        {"en", {""}, std::nullopt},
        {"", {""}, ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.code);
        EXPECT_EQ(Utils::languageForLanguageWithCode(row.code, row.allowed), row.want);
    }
    EXPECT_EQ(Utils::languageForLanguageWithCode("en", std::nullopt), std::nullopt);
}

TEST(LanguageSegment, DescribesItself) {
    const auto segment = LanguageSegment::initWithRange({3, 5}, "zh-Hans");
    EXPECT_EQ(segment->description(),
              "Class = 'LanguageSegment', Range = {3, 5}, LanguageCode = zh-Hans");
    segment->range = {0, 1};
    segment->languageCode.reset();
    EXPECT_EQ(segment->description(),
              "Class = 'LanguageSegment', Range = {0, 1}, LanguageCode = (null)");
}

}  // namespace
}  // namespace parlavox
