#include "Sources/TextImport/LineEndHyphens.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Sources/TextImport/ImportUtils.h"
#include "Tests/Support/TestData.h"

namespace parlavox {
namespace {

using platform::SpellChecker;
using Languages = std::vector<std::string>;

std::string english(std::u16string_view) {
    return "en";
}
std::string german(std::u16string_view) {
    return "de";
}
std::string swedish(std::u16string_view) {
    return "sv";
}
std::string none(std::u16string_view) {
    return "und";
}

/// What the rule says of the first "- " of a text.
bool shouldDelete(std::u16string_view text, LanguageTagging tagging, const SpellChecker& checker,
                  const Languages& languages) {
    return LineEndHyphens(text, checker, languages, tagging).shouldDelete({text.find(u"- "), 2});
}

struct Row {
    const char* name;
    std::u16string text;
    LanguageTagging tagging;
    bool want;
};

void expectDecisions(const std::vector<Row>& rows) {
    const SpellChecker checker = SpellChecker::sharedSpellChecker();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(shouldDelete(row.text, row.tagging, checker, checker.availableLanguages()),
                  row.want);
    }
}

TEST(LineEndHyphens, EnglishWordsAreJoinedAndCompoundsKept) {
    expectDecisions({
        {"broken between syllables", u"for exam- ple in", english, true},
        {"both parts are words, too", u"the light- house keeper", english, true},
        {"a prefix", u"they co- operate well", english, true},
        {"a word of the hyphen's own: joined it is another", u"a re- creation", english, true},
        {"a compound", u"a well- known name", english, false},
        {"a compound of self", u"her self- esteem", english, false},
        {"a number in words", u"some twenty- one of", english, false},
        {"a compound of ex", u"his ex- wife", english, false},
        {"a compound of a name", u"the English- speaking world", english, false},
        {"one of several hyphens", u"a mother- in-law", english, false},
        {"a part that is in no dictionary", u"the mid- 1990s", english, true},
        {"an unknown word", u"the spell Xyz- zy works", english, true},
        {"an unknown part", u"an exam- pel of it", english, true},
        {"a foreign word", u"the Leuchtturm- w\u00E4rter came", english, true},
        {"numbers are right when joined", u"pages 10- 12 of it", english, true},
        {"at the start of the text", u"exam- ple", english, true},
        {"with an apostrophe", u"it is- n't so", english, true},
    });
}

TEST(LineEndHyphens, GermanWordsAreJoinedAndCompoundsKept) {
    expectDecisions({
        {"broken between syllables", u"f\u00FCr Ver- antwortung und", german, true},
        {"between words of a compound", u"der Leucht- turm steht", german, true},
        {"a compound in three parts", u"der Leuchtturm- w\u00E4rter kam", german, true},
        {"with a sharp s", u"die Stra\u00DFen- bahn f\u00E4hrt", german, true},
        {"small letters", u"gehen mit- einander um", german, true},
        {"half of a pair", u"die Haus- und Hoft\u00FCr", german, false},
        {"a letter and a word", u"mit der S- Bahn fahren", german, false},
        {"mail", u"eine E- Mail schreiben", german, false},
        {"two names", u"der Nord- S\u00FCd-Konflikt", german, false},
        {"two adjectives", u"ein deutsch- franz\u00F6sisch gef\u00FChrtes", german, false},
        {"an unknown word", u"das Xyz- zyqu ist", german, true},
        {"a foreign word", u"die Bl\u00E5- b\u00E6r essen", german, true},
        {"an English word", u"der light- house da", german, true},
    });
}

TEST(LineEndHyphens, WithoutAlanguageOrAdictionaryAllAreDeleted) {
    const SpellChecker installed = SpellChecker::sharedSpellChecker();
    const SpellChecker bare({});
    struct OtherRow {
        const char* name;
        LanguageTagging tagging;
        const SpellChecker& checker;
        Languages languages;
        bool want;
    };
    const OtherRow rows[] = {
        {"as it is", english, installed, installed.availableLanguages(), false},
        {"no language", none, installed, installed.availableLanguages(), true},
        {"no dictionary for it", swedish, installed, installed.availableLanguages(), true},
        {"no language listed", english, installed, {}, true},
        {"another one listed", english, installed, {"de_DE", "e", "n_en", "EN"}, true},
        {"listed without a country", english, installed, {"de", "en"}, false},
        {"listed behind others", english, installed, {"de_DE", "en_GB"}, false},
        {"listed, but not there", english, bare, {"en_US"}, true},
        {"a language of three letters that begins so", english, installed, {"enm"}, false},
    };
    for (const OtherRow& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(shouldDelete(u"a well- known name", row.tagging, row.checker, row.languages),
                  row.want);
    }
}

TEST(LineEndHyphens, OnlyThoseDirectlyBetweenWordsAreDeleted) {
    const std::u16string dots(100, u'.');
    const std::u16string letters(100, u'a');
    expectDecisions({
        {"at the start", u"- ple", none, false},
        {"at the end", u"exam- ", none, false},
        {"nothing else", u"- ", none, false},
        {"between words", u"exam- ple", none, true},
        {"between single letters", u"a- b", none, true},
        {"between numbers", u"1- 2", none, true},
        {"behind a blank", u"exam - ple", none, false},
        {"before another blank", u"exam-  ple", none, false},
        {"behind a newline", u"exam\n- ple", none, false},
        {"before a newline", u"exam- \nple", none, false},
        {"behind a hyphen", u"exam-- ple", none, false},
        {"before a hyphen", u"exam- -ple", none, false},
        {"behind a bracket", u"(exam)- ple", none, false},
        {"before a quotation mark", u"exam- \"ple\"", none, false},
        {"behind a full stop", u"exam.- ple", none, false},
        {"behind a symbol", u"exam\U0001F600- ple", none, false},
        {"before a symbol", u"exam- \U0001F600", none, false},
        {"behind an underscore, which is of the word", u"exam_- ple", none, true},
        {"behind a letter with a mark", u"exame\u0301- ple", none, true},
        {"behind a letter of two units", u"\U00010411- ple", none, true},
        {"before a letter of two units", u"exam- \U00010411", none, true},
        {"behind a lone surrogate", u"exam\xD801- ple", none, false},
        {"before a lone surrogate", u"exam- \xDC11", none, false},
        {"behind Han", u"\u8A9E- ple", none, true},
        {"no word on the left within 100", u"exam" + dots + u"- ple", none, false},
        {"a word on the left, but not at the hyphen", u"exam" + dots.substr(50) + u"- ple", none,
         false},
        {"no word on the right within 100", u"exam- " + dots + u"ple", none, false},
        {"a word as long as the bound", letters + u"- " + letters, none, true},
        {"longer ones, which it cuts", letters + letters + u"- " + letters + letters, none, true},
    });
}

TEST(LineEndHyphens, RangesNeedNotBeHyphens) {
    // The rule takes any range at its word.
    const SpellChecker checker = SpellChecker::sharedSpellChecker();
    const std::u16string text = u"for exam- ple, well- known";
    const auto shouldDeleteAt = [&](platform::Range range) {
        return LineEndHyphens(text, checker, checker.availableLanguages(), english)
            .shouldDelete(range);
    };
    EXPECT_TRUE(shouldDeleteAt({8, 2}));
    EXPECT_FALSE(shouldDeleteAt({7, 2}));
    EXPECT_FALSE(shouldDeleteAt({8, 1}));
    EXPECT_FALSE(shouldDeleteAt({0, 0}));
    EXPECT_FALSE(shouldDeleteAt({text.size(), 0}));
    EXPECT_THROW((void)shouldDeleteAt({text.size() + 1, 0}), platform::RangeException);
    EXPECT_THROW((void)shouldDeleteAt({text.size() - 1, 2}), platform::RangeException);
    EXPECT_THROW((void)shouldDeleteAt({1, ~std::uint64_t{0}}), platform::RangeException);
    EXPECT_THROW((void)ImportUtils::shouldDeleteHyphenAtRange({text.size(), 1}, text, {}),
                 platform::RangeException);
}

TEST(LineEndHyphens, TheLanguageIsThatOfTheFirstWord) {
    // An English sentence is one that says "the".
    const LanguageTagging tagging = [](std::u16string_view stretch) {
        const bool isEnglish = stretch.find(u"the ") != std::u16string_view::npos;
        return std::string(isEnglish ? "en" : "de");
    };
    expectDecisions({
        {"English", u"Das ist die Haust\u00FCr dort. See the light- house.", tagging, true},
        {"German", u"See the old tower there. Ein light- house, so.", tagging, true},
        {"kept in English", u"Das ist ein Haus dort. See the well- known.", tagging, false},
        {"not kept in German", u"See the old tower there. Ein well- known Haus.", tagging, true},
        {"kept in German", u"See the old tower there. Die Haus- und Hoft\u00FCr.", tagging, false},
        {"not kept in English", u"Das ist ein Haus dort. See the Haus- und Hof.", tagging, true},
    });
}

TEST(LineEndHyphens, TogetherTheyAreDecidedAsEachAlone) {
    // The first letter of a sentence tells its language.
    const LanguageTagging tagging = [](std::u16string_view stretch) -> std::string {
        switch (stretch.front()) {
            case u'E':
                return "en";
            case u'D':
                return "de";
            case u'R':
                return "ru";
            case u'B':
                return "bg";
            case u'T':
                return "th";
            default:
                return "und";
        }
    };
    const SpellChecker checker({test::dataPath("spelling").string()});
    const std::vector<std::u16string> sentences = {
        u"E: the well- known light- house, so lamp- lamp, xq- zz. ",
        u"D: der Turm- w\u00E4rter, \u00FCber- H\u00F6he, Gr\u00FC- \u00DFe. ",
        u"R: ма- як свет- маяк - 1- 2. ",
        u"B: \u0444\u0430- \u0440 \u0444\u0430\u0440- \u0444\u0430\u0440. ",
        u"T: \u0E41\u0E2A\u0E07- \u0E41\u0E2A\u0E07. ",
        u"- 1234567890- 12. ",
    };
    std::u16string text;
    for (std::size_t i = 0; i < 60; ++i) {
        text += sentences[i * 7 % sentences.size()];
    }
    std::vector<platform::Range> want;
    std::size_t count = 0;
    for (std::size_t at = text.find(u"- "); at != std::u16string::npos;
         at = text.find(u"- ", at + 2), ++count) {
        LineEndHyphens rule(text, checker, checker.availableLanguages(), tagging);
        if (rule.shouldDelete({at, 2})) {
            want.push_back({at, 2});
        }
    }
    EXPECT_GT(want.size(), 60U);
    EXPECT_LT(want.size(), count - 60);
    LineEndHyphens rule(text, checker, checker.availableLanguages(), tagging);
    EXPECT_EQ(rule.rangesToDelete(), want);
}

TEST(LineEndHyphens, DictionariesOfOtherEncodingsDecide) {
    const SpellChecker checker({test::dataPath("spelling").string()});
    const Languages& languages = checker.availableLanguages();
    EXPECT_TRUE(shouldDelete(u"H\u00F6- he", german, checker, languages));
    EXPECT_TRUE(shouldDelete(u"Turm- w\u00E4rter", german, checker, languages));
    EXPECT_FALSE(shouldDelete(u"\u00FCber- H\u00F6he", german, checker, languages));
    EXPECT_TRUE(shouldDelete(u"\u00FCber- \u8A9E", german, checker, languages));
}

}  // namespace
}  // namespace parlavox
