#include "Platform/Text/PDFDocument.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/Font.h"
#include "Tests/Support/MadePdf.h"
#include "Tests/Support/TestData.h"

namespace platform {
namespace {

Data dataOf(const std::string& bytes) {
    return Data::copyOf(std::string_view(bytes));
}

Data fileNamed(const std::string& name) {
    std::ifstream file(test::dataPath("pdf/" + name), std::ios::binary);
    return Data::adopt(std::string(std::istreambuf_iterator<char>(file), {}));
}

std::u16string textOfPage(PDFDocument& document, std::uint64_t index) {
    return document.pageAtIndex(index)->attributedString().string();
}

const Font* fontAt(const AttributedString& text, std::uint64_t index) {
    const Attributes attributes = text.attributesAtIndex(index);
    const auto* const value = attributes ? attributes->find("NSFont") : nullptr;
    return value ? dynamic_cast<const Font*>(value->object().get()) : nullptr;
}

/// Counts the lines that are logged while it lives.
class LogCounter {
public:
    LogCounter() : before_(setLogSink([](std::string_view) { lines++; })) { lines = 0; }
    ~LogCounter() { setLogSink(before_); }
    LogCounter(const LogCounter&) = delete;
    LogCounter& operator=(const LogCounter&) = delete;

    static inline std::atomic<int> lines = 0;

private:
    LogSink before_;
};

TEST(PDFDocument, HasItsPagesInTheirOrder) {
    const auto document = PDFDocument::initWithData(
        dataOf(test::madePdf({{{50, 700, "One"}}, {}, {{50, 700, "Three"}}})));
    ASSERT_NE(document, nullptr) << lastFailure();
    ASSERT_EQ(document->pageCount(), 3U);
    EXPECT_EQ(textOfPage(*document, 2), u"Three\n");
    EXPECT_EQ(textOfPage(*document, 0), u"One\n");
    EXPECT_EQ(textOfPage(*document, 1), u"");
    EXPECT_EQ(document->pageAtIndex(3), nullptr);
}

TEST(PDFDocument, KnowsTheFontsOfItsText) {
    const auto document = PDFDocument::initWithData(
        dataOf(test::madePdf({{{50, 700, "Large", 24}, {50, 600, "Small", 8}}})));
    ASSERT_NE(document, nullptr) << lastFailure();
    const AttributedString text = document->pageAtIndex(0)->attributedString();
    ASSERT_EQ(text.string(), u"Large\nSmall\n");
    ASSERT_NE(fontAt(text, 0), nullptr);
    EXPECT_EQ(fontAt(text, 0)->fontName(), "Helvetica");
    EXPECT_EQ(fontAt(text, 0)->pointSize(), 24);
    ASSERT_NE(fontAt(text, 6), nullptr);
    EXPECT_EQ(fontAt(text, 6)->pointSize(), 8);
}

TEST(PDFDocument, ReadsPagesThatAreShownTurned) {
    for (const int rotation : {90, 180, 270}) {
        SCOPED_TRACE(rotation);
        const auto document = PDFDocument::initWithData(
            dataOf(test::madePdf({{{50, 700, "First line"}, {50, 686, "and second"}}}, rotation)));
        ASSERT_NE(document, nullptr) << lastFailure();
        EXPECT_EQ(textOfPage(*document, 0), u"First line and second\n");
    }
}

TEST(PDFDocument, ReadsAllTextThatBeginsOrEndsAtThePagesEdges) {
    // Where the library's selection began inside of what is written, it would leave something out.
    const auto document = PDFDocument::initWithData(dataOf(
        test::madePdf({{{-2, 400, "Edge"}, {50, 795, "Top"}, {570, 1, "end"}, {50, 500, "in"}}})));
    ASSERT_NE(document, nullptr) << lastFailure();
    EXPECT_EQ(textOfPage(*document, 0), u"Top\nin\nEdge\nend\n");
}

/// A line that is read from the right, which ends at `right` points.
test::PdfLineOfGlyphs lineFromTheRight(double right, double y, std::u16string text) {
    std::reverse(text.begin(), text.end());
    return {right - 6 * static_cast<double>(text.size()), y, text};
}

/// All of them could be lost: the library's selections begin and end in the middle of such pages.
TEST(PDFDocument, ReadsAllTextOfPagesThatAreReadFromTheRight) {
    const struct {
        const char* name;
        std::vector<test::PdfLineOfGlyphs> lines;
        const char16_t* text;
    } rows[] = {
        {"one line",
         {lineFromTheRight(550, 700, u"\u05E9\u05DC\u05D5\u05DD \u05E8\u05D1")},
         u"\u05E9\u05DC\u05D5\u05DD \u05E8\u05D1\n"},
        {"two lines of one length",
         {lineFromTheRight(550, 700, u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6 \u05D7\u05D8"),
          lineFromTheRight(550, 686, u"\u05D9\u05DB\u05DC\u05DE \u05E0\u05E1\u05E2 \u05E4\u05E6")},
         u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6 \u05D7\u05D8 "
         u"\u05D9\u05DB\u05DC\u05DE \u05E0\u05E1\u05E2 \u05E4\u05E6\n"},
        {"a heading from the left",
         {{50, 750, u"Title"},
          lineFromTheRight(550, 700, u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6 \u05D7\u05D8"),
          lineFromTheRight(550, 660, u"\u05D9\u05DB")},
         u"Title\n\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6 \u05D7\u05D8\n\u05D9\u05DB\n"},
        {"numbers above",
         {{50, 750, u"12"},
          lineFromTheRight(550, 700, u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6")},
         u"12\n\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6\n"},
        {"a last line from the left",
         {lineFromTheRight(550, 700, u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6 \u05D7\u05D8"),
          {50, 600, u"Page"}},
         u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5\u05D6 \u05D7\u05D8\nPage\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto document = PDFDocument::initWithData(dataOf(test::madePdfOfGlyphs(row.lines)));
        ASSERT_NE(document, nullptr) << lastFailure();
        const AttributedString text = document->pageAtIndex(0)->attributedString();
        EXPECT_EQ(text.string(), row.text);
        ASSERT_NE(fontAt(text, 0), nullptr);
        EXPECT_EQ(fontAt(text, 0)->fontName(), "Made");
        EXPECT_EQ(fontAt(text, 0)->pointSize(), 12);
    }
}

TEST(PDFDocument, ReadsBothLanguagesOfAPageWithOneInEachColumn) {
    std::vector<test::PdfLineOfGlyphs> lines;
    for (int i = 0; i < 20; i++) {
        const double y = 700 - 14.0 * i;
        lines.push_back({50, y, u"the terms of this"});
        lines.push_back(
            lineFromTheRight(550, y,
                             u"\u05EA\u05E0\u05D0\u05D9 \u05D7\u05D5\u05D6\u05D4 \u05D6\u05D4 "
                             u"\u05D4\u05DD \u05E4\u05D4 \u05D5\u05D0\u05DF"));
    }
    const auto document = PDFDocument::initWithData(dataOf(test::madePdfOfGlyphs(lines)));
    ASSERT_NE(document, nullptr) << lastFailure();
    const std::u16string text = textOfPage(*document, 0);
    const auto count = [&](char16_t letter) {
        return std::count(text.begin(), text.end(), letter);
    };
    EXPECT_EQ(count(u't'), 60);
    EXPECT_EQ(count(u'\u05D4'), 80);
}

/// Marks of direction that a file has of its own have boxes, those that the library adds have none.
TEST(PDFDocument, KeepsItsPlacesWhereAFileHasMarksOfDirection) {
    const auto document = PDFDocument::initWithData(dataOf(
        test::madePdfOfGlyphs({{50, 700, u"one \u202Btwo\u202C three"}, {50, 600, u"second"}})));
    ASSERT_NE(document, nullptr) << lastFailure();
    EXPECT_EQ(textOfPage(*document, 0), u"one two three\nsecond\n");
}

/// To the library a character of zero ends the text.
TEST(PDFDocument, ReadsOnBehindCharactersThatAreZero) {
    const std::u16string zeroBehind{u'a', 0};
    const std::u16string zeroBefore{0, u'a'};
    const std::u16string twoZeros{u'a', 0, 0};
    for (const std::u16string& meaning : {zeroBehind, zeroBefore, twoZeros}) {
        const auto document = PDFDocument::initWithData(
            dataOf(test::madePdfOfGlyphs({{50, 700, u"begin"},
                                          {50, 650, u"cabbage and cabbage"},
                                          {50, 600, u"a"},
                                          {50, 550, u"end"}},
                                         {{u'a', meaning}})));
        ASSERT_NE(document, nullptr) << lastFailure();
        EXPECT_EQ(textOfPage(*document, 0), u"begin\ncabbage and cabbage\na\nend\n");
    }
}

TEST(PDFDocument, APageOutlivesItsDocument) {
    auto document = PDFDocument::initWithData(dataOf(test::madePdf({{{50, 700, "Kept"}}})));
    ASSERT_NE(document, nullptr) << lastFailure();
    const auto page = document->pageAtIndex(0);
    document.reset();
    EXPECT_EQ(page->attributedString().string(), u"Kept\n");
}

TEST(PDFDocument, OpensNothingThatIsNoPdf) {
    const std::string whole = test::madePdf({{{50, 700, "One"}}});
    const std::string rows[] = {"", "%PDF-1.4", "Words", whole.substr(0, whole.size() / 4)};
    const LogCounter counter;
    for (const std::string& bytes : rows) {
        SCOPED_TRACE(bytes);
        clearFailure();
        EXPECT_EQ(PDFDocument::initWithData(dataOf(bytes)), nullptr);
        EXPECT_STREQ(lastFailure(), "PDF: damaged, or no PDF file at all");
    }
}

TEST(PDFDocument, OpensAFileWithoutPages) {
    const LogCounter counter;
    const auto document = PDFDocument::initWithData(dataOf(test::madePdf({})));
    ASSERT_NE(document, nullptr) << lastFailure();
    EXPECT_EQ(document->pageCount(), 0U);
    EXPECT_EQ(document->pageAtIndex(0), nullptr);
}

TEST(PDFDocument, OpensWhatIsEncryptedWithoutAPasswordAlone) {
    for (const char* name : {"pypdf-r2-empty-password.pdf", "pypdf-r3-empty-password.pdf",
                             "pypdf-r5-empty-password.pdf", "pypdf-r6-empty-password.pdf",
                             "pypdf-r4-owner-password.pdf"}) {
        SCOPED_TRACE(name);
        const auto document = PDFDocument::initWithData(fileNamed(name));
        ASSERT_NE(document, nullptr) << lastFailure();
        EXPECT_EQ(textOfPage(*document, 0).substr(0, 5), u"pdf e");
    }
    for (const char* name : {"pypdf-r4-user-password.pdf", "pypdf-r4-aes-user-password.pdf",
                             "serenity-password-is-sup.pdf"}) {
        SCOPED_TRACE(name);
        clearFailure();
        EXPECT_EQ(PDFDocument::initWithData(fileNamed(name)), nullptr);
        EXPECT_STREQ(lastFailure(), "PDF: encrypted, and a password or key is needed to read it");
    }
}

TEST(PDFDocument, LogsTheFirstOfTheLibrarysComplaints) {
    // Every line of the content that is no operator draws a complaint.
    std::string content;
    for (int i = 0; i < 100; i++) {
        content += "nonsense\n";
    }
    test::PdfBytes made;
    made.addObject("<</Type/Catalog/Pages 2 0 R>>");
    made.addObject("<</Type/Pages/Kids[3 0 R]/Count 1>>");
    made.addObject("<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 800]/Contents 4 0 R>>");
    made.addObject("<</Length " + std::to_string(content.size()) + ">>stream\n" + content +
                   "endstream");
    const LogCounter counter;
    const auto document = PDFDocument::initWithData(dataOf(made.finish()));
    ASSERT_NE(document, nullptr) << lastFailure();
    EXPECT_EQ(textOfPage(*document, 0), u"");
    EXPECT_EQ(LogCounter::lines, 1);
}

TEST(PDFDocument, LogsNothingOfAFileThatIsRefused) {
    const LogCounter counter;
    EXPECT_EQ(PDFDocument::initWithData(dataOf("no PDF at all")), nullptr);
    EXPECT_NE(lastFailure(), nullptr);
    EXPECT_EQ(LogCounter::lines, 0);
}

TEST(PDFDocument, DoesNotBelieveInMorePagesThanBytes) {
    std::string bytes = test::madePdf({{{50, 700, "One"}}});
    const std::string_view count = "/Count 1>>";
    bytes.replace(bytes.find(count), count.size(), "/Count 2000000000>>");
    const LogCounter counter;
    const auto document = PDFDocument::initWithData(dataOf(bytes));
    ASSERT_TRUE(document == nullptr || document->pageCount() <= bytes.size());
}

TEST(PDFDocument, DocumentsOfDifferentThreadsDoNotDisturbEachOther) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 8;
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < kThreads; number++) {
        threads.emplace_back([number, &right] {
            const auto letter = static_cast<char16_t>(u'\u05D0' + number);
            const std::string word = "Thread" + std::to_string(number);
            const std::u16string other(8, letter);
            const std::string bytes = test::madePdf({{{50, 700, word}}, {{50, 700, word}}});
            const std::string fromTheRight =
                test::madePdfOfGlyphs({lineFromTheRight(550, 700, other)});
            for (int round = 0; round < kRounds; round++) {
                const auto first = PDFDocument::initWithData(dataOf(bytes));
                const auto second = PDFDocument::initWithData(dataOf(fromTheRight));
                if (first != nullptr && second != nullptr &&
                    textOfPage(*first, 0) == utf16FromAscii(word + "\n") &&
                    textOfPage(*second, 0) == other + u"\n" &&
                    textOfPage(*first, 1) == textOfPage(*first, 0)) {
                    right++;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(right, kThreads * kRounds);
}

}  // namespace
}  // namespace platform
