#include "Sources/TextImport/ImportUtils.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "Platform/Text/SpellChecker.h"
#include "Platform/Text/TextAttachment.h"
#include "Tests/Support/LetteredText.h"

namespace parlavox {
namespace {

using namespace std::string_literals;
using platform::AttributedString;
using test::letteredText;
using test::lettersOf;

struct Row {
    const char* name;
    std::u16string text;
    std::string letters;
    std::u16string wantText;
    std::string wantRuns;
};

template <class Operation>
void expectCopies(Operation operation, const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const AttributedString source = letteredText(row.text, row.letters);
        const AttributedString copy = operation(source);
        EXPECT_EQ(copy.string(), row.wantText);
        EXPECT_EQ(lettersOf(copy), row.wantRuns);
        EXPECT_EQ(source.string(), row.text) << "the argument stays as it is";
        if (row.text == row.wantText) {
            EXPECT_EQ(&copy.string(), &source.string()) << "nothing is copied";
            EXPECT_EQ(&copy.runs(), &source.runs());
        }
    }
}

const std::vector<Row>& nulRows() {
    static const std::vector<Row> rows = {
        {"empty", u""s, "", u""s, ""},
        {"no NUL", u"abcdef"s, "aabb--", u"abcdef"s, "aa|bb|--"},
        {"only NULs", u"\0\0\0"s, "ab-", u""s, ""},
        {"one at the start", u"\0bcdef"s, "aabb--", u"bcdef"s, "a|bb|--"},
        {"one at the end", u"abcde\0"s, "aabb--", u"abcde"s, "aa|bb|-"},
        {"next to each other", u"ab\0\0ef"s, "aabb--", u"abef"s, "aa|--"},
        {"everywhere", u"\0a\0\0b\0c\0"s, "aaaabbbb", u"abc"s, "a|bb"},
        {"inside a run", u"ab\0cd"s, "aaaaa", u"abcd"s, "aaaa"},
        {"the zero itself stays",
         u"0\0"
         u"0"s,
         "aaa", u"00"s, "aa"},
        {"before a mark", u"a\0\u0301"s, "aaa", u"a\u0301"s, "aa"},
        {"between surrogates", u"\xD83D\0\xDE00"s, "aaa", u"\xD83D\xDE00"s, "aa"},
        {"before a lone surrogate", u"\0\xD83D"s, "aa", u"\xD83D"s, "a"},
    };
    return rows;
}

TEST(ImportUtils, CleanCopiesHaveNoNul) {
    expectCopies(ImportUtils::createCleanCopy, nulRows());
    expectCopies(ImportUtils::createCleanCopyFromPDFString, nulRows());
}

TEST(ImportUtils, ManyNulsAreRemoved) {
    std::u16string text;
    std::u16string want;
    for (int i = 0; i < 10'000; ++i) {
        text += i % 3 == 0 ? u"\0ab"s : u"cd\0"s;
        want += i % 3 == 0 ? u"ab"s : u"cd"s;
    }
    EXPECT_EQ(ImportUtils::createCleanCopy(AttributedString(text)).string(), want);
}

/// Lettered text in which the characters that are U+FFFC, and those whose letter is '@', carry an
/// attachment.
AttributedString withAttachments(const Row& row) {
    platform::Dictionary dictionary;
    dictionary.set("Letter", platform::Value(static_cast<int>('@')));
    dictionary.set(platform::kAttachmentAttributeName,
                   platform::Value(std::make_shared<const platform::TextAttachment>(nullptr)));
    const auto attachment = std::make_shared<const platform::Dictionary>(std::move(dictionary));
    std::vector<platform::AttributeRun> runs;
    for (const char letter : row.letters) {
        platform::appendRun(runs, 1, letter == '@' ? attachment : test::attributesOf(letter));
    }
    return {std::make_shared<const std::u16string>(row.text), std::move(runs)};
}

TEST(ImportUtils, RunsWithAttachmentsAreLeftOut) {
    const std::vector<Row> rows = {
        {"empty", u"", "", u"", ""},
        {"none", u"abcdef", "aabb--", u"abcdef", "aa|bb|--"},
        {"only an attachment", u"\uFFFC", "@", u"", ""},
        {"only attachments of any length", u"abc\uFFFC", "@@@@", u"", ""},
        {"text before and after",
         u"ab\uFFFC"
         u"de",
         "ab@b-", u"abde", "a|bb|-"},
        {"at the start",
         u"\uFFFC"
         u"bc",
         "@ab", u"bc", "a|b"},
        {"at the end", u"ab\uFFFC", "ab@", u"ab", "a|b"},
        {"several",
         u"a\uFFFC"
         u"bc\uFFFC\uFFFC"
         u"d",
         "a@ab@@-", u"abcd", "aa|b|-"},
        {"a character that looks like one stays",
         u"a\uFFFC"
         u"b",
         "aab",
         u"a\uFFFC"
         u"b",
         "aa|b"},
        {"NULs stay", u"a\0b"s, "aab", u"a\0b"s, "aa|b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const AttributedString source = withAttachments(row);
        const AttributedString copy = ImportUtils::createCopyWithoutAttachments(source);
        EXPECT_EQ(copy.string(), row.wantText);
        EXPECT_EQ(lettersOf(copy), row.wantRuns);
        EXPECT_EQ(source.string(), row.text);
        if (row.text == row.wantText) {
            EXPECT_EQ(&copy.string(), &source.string()) << "nothing is copied";
        }
    }
}

TEST(ImportUtils, LineEndHyphensAreRemovedFromPdfText) {
    expectCopies(
        ImportUtils::createCleanCopyFromPDFString,
        {
            {"a word is joined", u"for exam- ple", "aaaaaaaaaaaaa", u"for example", "aaaaaaaaaaa"},
            {"attributes stay", u"exam- ple", "aabbbb-aa", u"example", "aa|bb|-|aa"},
            {"the second is shifted by the first", u"exam- ple, exam- ple", "aaaaaabbbbbaaaaaabbb",
             u"example, example", "aaaa|bbbbb|aaaa|bbb"},
            {"at the start and the end nothing", u"- exam- ", "aaaaaaaa", u"- exam- ", "aaaaaaaa"},
            {"behind a blank, before a blank", u"a - b-  c", "aaaaaaaaa", u"a - b-  c",
             "aaaaaaaaa"},
            {"no blank", u"well-known", "aaaaaaaaaa", u"well-known", "aaaaaaaaaa"},
            {"another hyphen", u"exam\u2010 ple", "aaaaaaaaa", u"exam\u2010 ple", "aaaaaaaaa"},
            {"another blank", u"exam-\u00A0ple", "aaaaaaaaa", u"exam-\u00A0ple", "aaaaaaaaa"},
            {"a newline", u"exam-\nple", "aaaaaaaaa", u"exam-\nple", "aaaaaaaaa"},
            {"a NUL in between", u"exam-\0 ple"s, "aaaaaaaaaa", u"example", "aaaaaaa"},
            {"a NUL at the hyphen", u"exam\0- ple"s, "aaaaaaaaaa", u"example", "aaaaaaa"},
            {"a blank with a mark is found literally", u"exam- \u0301ple", "aaaaaaaaaa",
             u"exam- \u0301ple", "aaaaaaaaaa"},
            {"far behind", std::u16string(300, u'.') + u" exam- ple", std::string(310, 'a'),
             std::u16string(300, u'.') + u" example", std::string(308, 'a')},
            {"more than 100 characters that are no word", u"a" + std::u16string(101, u'.') + u"- b",
             std::string(105, 'a'), u"a" + std::u16string(101, u'.') + u"- b",
             std::string(105, 'a')},
        });
}

TEST(ImportUtils, WithoutAlanguageAllHyphensBetweenWordsAreRemoved) {
    // Numbers have no language.
    expectCopies(ImportUtils::createCleanCopyFromPDFString,
                 {
                     {"one", u"1- 2", "aaaa", u"12", "aa"},
                     {"all", u"1- 2- 3, 4- 5", "aaaaaaaaaaaaa", u"123, 45", "aaaaaaa"},
                     {"not beside a blank", u"1 - 2- 3", "aaaaaaaa", u"1 - 23", "aaaaaa"},
                 });
}

TEST(ImportUtils, TheRuleIsThatOfTheWholeCopy) {
    const auto languages = platform::SpellChecker::sharedSpellChecker().availableLanguages();
    const std::u16string text =
        u"The light- house stood on a well- known rock. It was an exam- ple of what 12 - 13 "
        u"and 14- 15 men can do. Der Leucht- turm stand auf einem Felsen. Jeder kannte die "
        u"Haus- und Hoft\u00FCr mit der Xyz- zyqu daran.";
    std::u16string want;
    std::size_t kept = 0;
    for (std::size_t at = text.find(u"- "); at != std::u16string::npos;
         at = text.find(u"- ", at + 2)) {
        if (ImportUtils::shouldDeleteHyphenAtRange({at, 2}, text, languages)) {
            want += text.substr(kept, at - kept);
            kept = at + 2;
        }
    }
    want += text.substr(kept);
    EXPECT_NE(want, text);
    EXPECT_EQ(ImportUtils::createCleanCopyFromPDFString(AttributedString(text)).string(), want);
}

TEST(ImportUtils, ManyThreadsCleanAtOnce) {
    constexpr int kThreads = 8;
    const AttributedString source(u"An exam- ple, 1- 2.\0"s);
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&] {
            for (int round = 0; round < 20; ++round) {
                const auto copy = ImportUtils::createCleanCopyFromPDFString(source);
                right += copy.string() == u"An example, 12." ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(right, kThreads * 20);
}

}  // namespace
}  // namespace parlavox
