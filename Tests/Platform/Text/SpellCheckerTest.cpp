#include "Platform/Text/SpellChecker.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <iterator>
#include <string>
#include <thread>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/IdleResources.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

constexpr Range kNothing{kNotFound, 0};

SpellChecker checkerOfData() {
    return SpellChecker({test::dataPath("spelling").string()});
}

struct Row {
    const char* name;
    std::string language;
    std::u16string text;
    std::uint64_t startingAt;
    Range want;
};

void expectRanges(const SpellChecker& checker, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(checker.checkSpellingOfString(row.text, row.startingAt, row.language), row.want);
    }
}

TEST(SpellChecker, FindsTheFirstMisspelledWord) {
    expectRanges(
        checkerOfData(),
        {
            {"empty", "en", u"", 0, kNothing},
            {"no words", "en", u" - ...", 0, kNothing},
            {"a right word", "en", u"lighthouse", 0, kNothing},
            {"a wrong one", "en", u"lihgthouse", 0, {0, 10}},
            {"the first of two", "en", u"lamp xlamp xtower", 0, {5, 5}},
            {"from a start on, and what is left of a word there",
             "en",
             u"lamp xlamp xtower",
             6,
             {11, 6}},
            {"behind it", "en", u"xlamp tower", 5, kNothing},
            {"a start at the end", "en", u"xlamp", 5, kNothing},
            {"with a suffix", "en", u"keepers lamps", 0, kNothing},
            {"a forbidden word", "en", u"lihgt", 0, {0, 5}},
            {"a part of a word", "en", u"keep", 0, {0, 4}},
            {"parts between hyphens are words", "en", u"well-known", 0, kNothing},
            {"one of them wrong", "en", u"well-knwon", 0, {5, 5}},
            {"an apostrophe", "en", u"don't", 0, kNothing},
            {"numbers", "en", u"1 1,000 3.14 2024-01-02", 0, kNothing},
            {"numbers of other scripts", "en", u"\u0661\u0662\u0663 \U0001D7D8", 0, kNothing},
            {"a number with letters", "en", u"12abc", 0, {0, 5}},
            {"outside of ASCII", "en", u"caf\u00E9s caf\u00EB", 0, {6, 4}},
            {"two units a letter", "en", u"\U00010411\U00010432\U0001043B", 0, kNothing},
            {"two units a letter, wrong", "en", u"lamp \U00010411\U00010432", 0, {5, 4}},
            {"a lone surrogate is no word", "en", u"lamp \xD800 tower", 0, kNothing},
            {"NUL", "en", std::u16string(u"lamp\0xlamp", 10), 0, {5, 5}},
        });
}

TEST(SpellChecker, CaseCountsAsTheDictionaryHasIt) {
    expectRanges(checkerOfData(), {
                                      {"at the start of a sentence", "en", u"Lamp", 0, kNothing},
                                      {"capitals", "en", u"LAMP", 0, kNothing},
                                      {"mixed", "en", u"lAmp", 0, {0, 4}},
                                      {"a name", "en", u"London LONDON", 0, kNothing},
                                      {"a name in small letters", "en", u"london", 0, {0, 6}},
                                      {"an acronym", "en", u"NATO", 0, kNothing},
                                      {"an acronym in small letters", "en", u"Nato", 0, {0, 4}},
                                  });
}

TEST(SpellChecker, DictionariesKeepTheirEncoding) {
    expectRanges(
        checkerOfData(),
        {
            {"ISO 8859-1", "de", u"Gr\u00FC\u00DFe H\u00F6hen \u00FCber", 0, kNothing},
            {"ISO 8859-1, capitals", "de", u"GR\u00DCSSE", 0, kNothing},
            {"ISO 8859-1, wrong", "de", u"H\u00FChe", 0, {0, 4}},
            {"a compound", "de", u"Turmw\u00E4rter", 0, kNothing},
            {"parts in the wrong order", "de", u"W\u00E4rterturm", 0, {0, 10}},
            {"a letter that ISO 8859-1 lacks", "de", u"\u00FCber H\u014Dhe", 0, {5, 4}},
            {"a word that it lacks", "de", u"\u043C\u0430\u044F\u043A", 0, {0, 4}},
            {"KOI8-R", "ru", u"\u043C\u0430\u044F\u043A \u0421\u0432\u0435\u0442", 0, kNothing},
            {"KOI8-R, wrong", "ru", u"\u043C\u0430\u044F\u043A\u043A", 0, {0, 5}},
            {"a code page", "bg", u"\u0444\u0430\u0440", 0, kNothing},
            {"a code page, wrong", "bg", u"\u0444\u0430\u0440\u0440", 0, {0, 4}},
            {"Thai", "th", u"\u0E41\u0E2A\u0E07", 0, kNothing},
            {"Thai, wrong", "th", u"\u0E41\u0E2A\u0E07\u0E07", 0, {0, 4}},
        });
}

TEST(SpellChecker, WithoutAdictionaryNothingIsMisspelled) {
    expectRanges(checkerOfData(), {
                                      {"a language that is not there", "sv", u"xqz", 0, kNothing},
                                      {"no language", "", u"xqz", 0, kNothing},
                                      {"the start of a code", "e", u"xqz", 0, kNothing},
                                      {"an encoding that is unknown", "hi", u"xqz", 0, kNothing},
                                  });
    test::TemporaryFolder folder;
    folder.write("en_US.aff", "SET UTF-8\n");
    folder.write("en_US.dic", "1\nlamp\n");
    const SpellChecker checker({folder.path()});
    std::filesystem::remove(folder.path("en_US.dic"));
    EXPECT_EQ(checker.checkSpellingOfString(u"xqz", 0, "en"), kNothing);
    EXPECT_EQ(checker.checkSpellingOfString(std::u16string(1000, u'x'), 0, "en"), kNothing);
}

TEST(SpellChecker, LongWordsAreMisspelled) {
    const SpellChecker checker = checkerOfData();
    const SpellChecker installed = SpellChecker::sharedSpellChecker();
    for (const std::uint64_t length : {99, 100, 101, 255, 256, 257, 1000, 1'000'000}) {
        for (const char16_t letter : {u'x', u'\u00FC', u'\u044F', u'\u8A9E'}) {
            SCOPED_TRACE(std::to_string(length) + " of " + std::to_string(letter));
            const std::u16string word(length, letter);
            for (const char* language : {"en", "de", "ru"}) {
                EXPECT_NE(checker.checkSpellingOfString(word, 0, language), kNothing);
            }
            EXPECT_NE(installed.checkSpellingOfString(word, 0, "de"), kNothing);
        }
    }
}

TEST(SpellChecker, StartsBehindTheTextRaise) {
    EXPECT_THROW((void)checkerOfData().checkSpellingOfString(u"lamp", 5, "en"), RangeException);
    EXPECT_THROW((void)checkerOfData().checkSpellingOfString(u"lamp", kNotFound, "sv"),
                 RangeException);
}

TEST(SpellChecker, VerdictsStayWhenTheyAreRemembered) {
    // More words than any table remembers, and more languages than stay loaded.
    const SpellChecker checker = checkerOfData();
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 10'000; ++i) {
            std::u16string word = u"lamp";
            for (int rest = i; rest > 0; rest /= 26) {
                word += static_cast<char16_t>(u'a' + rest % 26);
            }
            const bool isRight = word == u"lamp" || word == u"lamps";
            ASSERT_EQ(checker.checkSpellingOfString(word, 0, "en") == kNothing, isRight) << i;
        }
        for (const char* language : {"de", "ru", "bg", "th", "hi"}) {
            EXPECT_EQ(checker.checkSpellingOfString(u"lamp", 0, language) == kNothing,
                      std::string(language) == "hi");
        }
        releaseIdleResources();
    }
}

TEST(SpellChecker, OneDictionaryOutlivesOthers) {
    // It is asked again and again and stays, while they put each other out. Capitals show whether
    // it still knows small letters from large ones.
    const SpellChecker checker = checkerOfData();
    const std::u16string capitals[] = {u"LAMP",  u"Lamps",  u"KEEPER", u"Keepers",
                                       u"TOWER", u"Towers", u"LIGHT",  u"Lighthouse",
                                       u"HOUSE", u"Well",   u"KNOWN",  u"CAF\u00C9S"};
    const char* const others[] = {"de", "ru", "bg", "th", "hi"};
    std::size_t turn = 0;
    for (const std::u16string& word : capitals) {
        EXPECT_EQ(checker.checkSpellingOfString(word, 0, "en"), kNothing) << turn;
        for (int i = 0; i < 2; ++i) {
            const char* const other = others[turn++ % std::size(others)];
            EXPECT_EQ(checker.checkSpellingOfString(u"xqz", 0, other) == kNothing,
                      std::string(other) == "hi");
        }
    }
}

TEST(SpellChecker, InstalledDictionariesAreListedAndAsked) {
    const SpellChecker checker = SpellChecker::sharedSpellChecker();
    const auto& languages = checker.availableLanguages();
    const auto placeOf = [&](const char* language) {
        return std::find(languages.begin(), languages.end(), language);
    };
    ASSERT_NE(placeOf("en_US"), languages.end());
    ASSERT_NE(placeOf("de_DE"), languages.end());
    // These are other names of de_DE.
    EXPECT_EQ(placeOf("de_BE"), languages.end());
    EXPECT_EQ(placeOf("de_LU"), languages.end());
    expectRanges(checker,
                 {
                     {"English", "en", u"The lighthouse keeper's example isn\u2019t misspelled.", 0,
                      kNothing},
                     {"English, wrong", "en", u"an exampel", 0, {3, 7}},
                     {"American", "en", u"colour", 0, {0, 6}},
                     {"German", "de", u"Der Leuchtturmw\u00E4rter gr\u00FC\u00DFt t\u00E4glich.", 0,
                      kNothing},
                     {"German, wrong", "de", u"t\u00E4glihc", 0, {0, 7}},
                     {"German by another of its names", "de_LU", u"t\u00E4glihc", 0, {0, 7}},
                     {"English is no German", "de", u"lighthouse", 0, {0, 10}},
                 });
}

TEST(SpellChecker, ManyThreadsAskAtOnce) {
    constexpr int kThreads = 8;
    constexpr int kRounds = 200;
    const SpellChecker checker = checkerOfData();
    struct Question {
        const char* language;
        std::u16string word;
        bool isRight;
    };
    const std::vector<Question> questions = {
        {"en", u"lighthouse", true},
        {"en", u"xlight", false},
        {"de", u"Turmw\u00E4rter", true},
        {"de", u"W\u00E4rterturm", false},
        {"ru", u"\u0441\u0432\u0435\u0442", true},
        {"ru", u"lamp", false},
        {"bg", u"\u0444\u0430\u0440", true},
        {"bg", u"lamp", false},
        {"th", u"\u0E41\u0E2A\u0E07", true},
        {"th", u"lamp", false},
        {"hi", u"lamp", true},
        {"sv", u"lamp", true},
    };
    std::atomic<int> wrongAnswers = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&, thread] {
            for (int round = 0; round < kRounds; ++round) {
                const std::size_t at = static_cast<std::size_t>(thread + round) % questions.size();
                const Question& question = questions[at];
                const Range range =
                    checker.checkSpellingOfString(question.word, 0, question.language);
                wrongAnswers += (range == kNothing) != question.isRight ? 1 : 0;
                if (round % 50 == thread) {
                    releaseIdleResources();
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrongAnswers, 0);
}

}  // namespace
}  // namespace platform
