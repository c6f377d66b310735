#include "Sources/TextImport/PDFImporter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Text/Font.h"
#include "Platform/Text/ParagraphStyle.h"
#include "Tests/Support/MadePdf.h"
#include "Tests/Support/TestData.h"

namespace parlavox {
namespace {

using platform::AttributedString;
using platform::Attributes;
using platform::Data;
using platform::Dictionary;
using platform::Font;
using platform::ParagraphStyle;
using platform::Value;

/// A document whose pages are texts of the test's; null for one that cannot be read.
class GivenDocument final : public platform::PDFDocument {
public:
    explicit GivenDocument(std::vector<std::shared_ptr<const AttributedString>> pages)
        : pages_(std::move(pages)) {}

    [[nodiscard]] std::uint64_t pageCount() const override { return pages_.size(); }
    [[nodiscard]] std::shared_ptr<platform::PDFPage> pageAtIndex(std::uint64_t index) override {
        return pages_[index] ? std::make_shared<Page>(pages_[index]) : nullptr;
    }

private:
    class Page final : public platform::PDFPage {
    public:
        explicit Page(std::shared_ptr<const AttributedString> text) : text_(std::move(text)) {}
        [[nodiscard]] AttributedString attributedString() const override { return *text_; }

    private:
        std::shared_ptr<const AttributedString> text_;
    };

    std::vector<std::shared_ptr<const AttributedString>> pages_;
};

AttributedString importedPages(std::vector<std::u16string> pages) {
    std::vector<std::shared_ptr<const AttributedString>> texts;
    for (std::u16string& page : pages) {
        texts.push_back(std::make_shared<const AttributedString>(std::move(page)));
    }
    GivenDocument document(std::move(texts));
    return PDFImporter::createStringFromDocument(document);
}

Attributes attributesOf(std::initializer_list<std::pair<const char*, Value>> attributes) {
    Dictionary dictionary;
    for (const auto& [name, value] : attributes) {
        dictionary.set(name, value);
    }
    return std::make_shared<const Dictionary>(std::move(dictionary));
}

Value fontOf(const char* name, double size) {
    return Value(std::make_shared<const Font>(name, size));
}

TEST(PDFImporter, AnswersNothingForAbsentDataAndForNoPdf) {
    EXPECT_FALSE(PDFImporter::createStringFromPDFData(std::nullopt));
    EXPECT_FALSE(PDFImporter::createStringFromPDFData(Data()));
    EXPECT_FALSE(PDFImporter::createStringFromPDFData(Data::copyOf("no PDF at all")));
}

TEST(PDFImporter, AnswersAnEmptyTextForAFileWithoutPages) {
    const platform::LogSink before = platform::setLogSink([](std::string_view) {});
    const auto text = PDFImporter::createStringFromPDFData(Data::copyOf(test::madePdf({})));
    platform::setLogSink(before);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->string(), u"");
    EXPECT_TRUE(text->runs().empty());
}

TEST(PDFImporter, PutsNothingBetweenPages) {
    EXPECT_EQ(importedPages({u"ab", u"cd"}).string(), u"abcd");
    EXPECT_EQ(importedPages({u"ab\n", u"", u"cd\n"}).string(), u"ab\ncd\n");
}

TEST(PDFImporter, PassesOverAPageThatCannotBeRead) {
    GivenDocument document({std::make_shared<const AttributedString>(u"ab"), nullptr,
                            std::make_shared<const AttributedString>(u"cd")});
    EXPECT_EQ(PDFImporter::createStringFromDocument(document).string(), u"abcd");
}

TEST(PDFImporter, ReadsTheTextOfAFile) {
    const auto text = PDFImporter::createStringFromPDFData(Data::copyOf(test::madePdf(
        {{{50, 700, "First line"}, {50, 686, "and second"}}, {{50, 700, "Another page"}}})));
    ASSERT_TRUE(text);
    EXPECT_EQ(text->string(), u"First line and second\nAnother page\n");
}

TEST(PDFImporter, LeavesOutNulsAndJoinsWordsThatLinesAndPagesBroke) {
    using namespace std::string_literals;
    EXPECT_EQ(importedPages({u"An exam- ple\0 of a well- known and broken exam- "s,
                             u"ple of the language.\n"s})
                  .string(),
              u"An example of a well- known and broken example of the language.\n");
}

TEST(PDFImporter, GivesTheWholeTheDefaultParagraphStyleAlone) {
    platform::ParagraphLayout layout;
    layout.headIndent = 36;
    const auto style = std::make_shared<const ParagraphStyle>(layout);
    const auto words = std::make_shared<const std::u16string>(u"abcdef");
    GivenDocument document({std::make_shared<const AttributedString>(
        words, std::vector<platform::AttributeRun>{
                   {2, attributesOf({{"NSParagraphStyle", Value(style)}})},
                   {2, attributesOf({{"NSFont", fontOf("Times-Roman", 12)}})}})});
    const AttributedString text = PDFImporter::createStringFromDocument(document);
    ASSERT_EQ(text.string(), u"abcdef");
    std::shared_ptr<const platform::Object> only;
    for (const platform::AttributeRun& run : text.runs()) {
        ASSERT_NE(run.attributes, nullptr);
        const Value* const value = run.attributes->find("NSParagraphStyle");
        ASSERT_NE(value, nullptr);
        const auto found = std::dynamic_pointer_cast<const ParagraphStyle>(value->object());
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->layout(), platform::ParagraphLayout{});
        EXPECT_TRUE(only == nullptr || only == found);
        only = found;
    }
}

TEST(PDFImporter, KeepsFontsInHalfPointsAndNoOtherAttributes) {
    const auto words = std::make_shared<const std::u16string>(u"abcdef");
    GivenDocument document({std::make_shared<const AttributedString>(
        words,
        std::vector<platform::AttributeRun>{
            {2, attributesOf({{"NSFont", fontOf("Times-Roman", 9.96)}, {"NSLink", Value(7)}})},
            {2, attributesOf({{"NSFont", fontOf("Times-Bold", 12.2)}})},
            {2, attributesOf({{"NSLink", Value(7)}})}})});
    const AttributedString text = PDFImporter::createStringFromDocument(document);
    ASSERT_EQ(text.runs().size(), 3U);
    struct Row {
        const char* name;
        double size;
    };
    constexpr Row kRows[] = {{"Times-Roman", 10}, {"Times-Bold", 12}};
    for (std::size_t i = 0; i < std::size(kRows); i++) {
        SCOPED_TRACE(kRows[i].name);
        const Attributes& attributes = text.runs()[i].attributes;
        EXPECT_EQ(attributes->entries().size(), 2U);
        const auto font =
            std::dynamic_pointer_cast<const Font>(attributes->find("NSFont")->object());
        ASSERT_NE(font, nullptr);
        EXPECT_EQ(font->fontName(), kRows[i].name);
        EXPECT_EQ(font->pointSize(), kRows[i].size);
    }
    EXPECT_EQ(text.runs()[2].attributes->entries().size(), 1U);
}

std::string bytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Line ends turn the hyphen of Unicode into the usual one.
std::u16string withUsualHyphens(std::u16string text) {
    std::replace(text.begin(), text.end(), u'\u2010', u'-');
    return text;
}

TEST(PDFImporter, RecoversEachParagraphOfColumnsWithBrokenWords) {
    struct Row {
        const char* file;
        const char* text;
    };
    constexpr Row kRows[] = {
        {"pdf/made-de-two-columns.pdf", "pdf/made-de-two-columns.pdf.expected.txt"},
        {"pdf/made-fr-two-columns.pdf", "pdf/made-fr-two-columns.pdf.expected.txt"},
    };
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.file);
        const auto text =
            PDFImporter::createStringFromPDFData(Data::copyOf(bytesOf(test::dataPath(row.file))));
        ASSERT_TRUE(text);
        const std::string want = bytesOf(test::dataPath(row.text));
        EXPECT_EQ(withUsualHyphens(text->string()),
                  withUsualHyphens(platform::utf16FromUtf8Lossy(want)));
    }
}

}  // namespace
}  // namespace parlavox
