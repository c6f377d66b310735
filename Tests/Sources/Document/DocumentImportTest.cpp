#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Text/TextAttachment.h"
#include "Sources/Document/Document.h"
#include "Tests/Support/TemporaryFolder.h"
#include "Tests/Support/TestData.h"

namespace parlavox {
namespace {

using platform::Error;
using platform::FileWrapper;
using platform::URL;

const Error kUntouched{"untouched", 7, ""};

class DocumentImport : public testing::Test {
protected:
    bool import(const std::string& path, const char* type) {
        error = kUntouched;
        return document->readFromURL(URL::fileURLWithPath(path), type, &error);
    }

    /// Whether no part of the text is an attachment any more.
    bool hasNoAttachment() const {
        const auto text = document->textStorage()->attributedString();
        for (const auto& run : text.runs()) {
            if (run.attributes && run.attributes->find(platform::kAttachmentAttributeName)) {
                return false;
            }
        }
        return text.string().find(platform::kAttachmentCharacter) == std::u16string::npos;
    }

    const test::TemporaryFolder folder;
    const std::shared_ptr<Document> document = Document::init();
    std::optional<Error> error;
};

constexpr char kPicture[] = "{\\rtf1 words{\\pict\\pngblip 00} and more\\par}";

TEST_F(DocumentImport, RtfMakesANewDocumentThatIsEdited) {
    ASSERT_TRUE(import(folder.write("a.rtf", kPicture), "public.rtf"));
    EXPECT_EQ(document->textStorage()->string(), u"words and more\n");
    EXPECT_TRUE(hasNoAttachment());
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(document->fileType(), kDocumentType);
    EXPECT_EQ(document->fileURL(), std::nullopt);
    EXPECT_EQ(document->isEditing(), Editing::Yes) << "stays as it was";
    EXPECT_EQ(error, kUntouched);
}

TEST_F(DocumentImport, RtfdEndsEditing) {
    ASSERT_TRUE(import(test::dataPath("rtfd/made-graphic.rtfd"), "com.apple.rtfd"));
    EXPECT_EQ(document->textStorage()->string(),
              u"Before the picture after the picture.\nSecond paragraph.");
    EXPECT_TRUE(hasNoAttachment());
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(document->fileType(), kDocumentType);
    EXPECT_EQ(document->isEditing(), Editing::No);
    EXPECT_EQ(error, kUntouched);
}

TEST_F(DocumentImport, TextIsCleaned) {
    ASSERT_TRUE(import(folder.write("a.rtf", "{\\rtf1 a\\u0?b}"), "public.rtf"));
    EXPECT_EQ(document->textStorage()->string(), u"ab");
    ASSERT_TRUE(import(folder.write("a.txt", std::string_view("words\0 and more", 15)),
                       "public.plain-text"));
    EXPECT_EQ(document->textStorage()->string(), u"words and more");
    folder.write("a.rtfd/TXT.rtf", "{\\rtf1 a\\u0?b}");
    ASSERT_TRUE(import(folder.path("a.rtfd"), "com.apple.rtfd"));
    EXPECT_EQ(document->textStorage()->string(), u"ab");
}

TEST_F(DocumentImport, WhatCannotBeReadLeavesNoError) {
    folder.write("bad.rtfd/picture.png", "x");
    const struct {
        std::string path;
        const char* type;
    } kRows[] = {
        {folder.path("bad.rtfd"), "com.apple.rtfd"},
        {folder.write("flat.rtfd", "rtfd"), "com.apple.rtfd"},
        {folder.write("a.rtf", std::string(100, '\1')), "public.rtf"},
        {folder.write("a.txt", "\x89PNG\r\n\x1A\n"), "public.plain-text"},
    };
    ASSERT_TRUE(import(folder.write("good.txt", "words"), "public.plain-text"));
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.path);
        EXPECT_FALSE(import(row.path, row.type));
        EXPECT_EQ(error, kUntouched);
        EXPECT_EQ(document->textStorage()->string(), u"words");
        EXPECT_EQ(document->isEditing(), Editing::Yes);
    }
    EXPECT_FALSE(import(folder.path("missing.rtfd"), "com.apple.rtfd"));
    EXPECT_EQ(error->code, 260) << "the base class tells of files that can't be read";
}

TEST_F(DocumentImport, AFolderOfAnotherTypeIsRefusedByTheBaseClass) {
    folder.write("a.rtfd/TXT.rtf", "{\\rtf1 a}");
    EXPECT_FALSE(import(folder.path("a.rtfd"), "public.rtf"));
    EXPECT_EQ(error->code, 256);
}

TEST_F(DocumentImport, FlatRtfdIsKnownByItsBytes) {
    const auto wrapper =
        FileWrapper::initWithPath(test::dataPath("rtfd/made-graphic.rtfd"), nullptr);
    const std::string path = folder.write("flat", wrapper->serializedRepresentation()->view());
    for (const char* type : {"com.apple.flat-rtfd", "public.data"}) {
        const auto fresh = Document::init();
        EXPECT_TRUE(fresh->readFromURL(URL::fileURLWithPath(path), type, nullptr));
        EXPECT_EQ(fresh->textStorage()->string().substr(0, 18), u"Before the picture");
        EXPECT_EQ(fresh->isEditing(), Editing::Yes);
    }
}

TEST_F(DocumentImport, PdfGivesTheTextOfItsPages) {
    const std::string path = test::dataPath("pdf/made-de-two-columns.pdf");
    ASSERT_TRUE(import(path, "com.adobe.pdf"));
    EXPECT_GT(document->textStorage()->length(), 1000u);
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(document->fileType(), kDocumentType);
    EXPECT_EQ(document->isEditing(), Editing::Yes);
    EXPECT_EQ(error, kUntouched);
    const auto before = document->textStorage()->string();
    EXPECT_FALSE(import(test::dataPath("pdf/serenity-password-is-sup.pdf"), "com.adobe.pdf"));
    EXPECT_EQ(document->textStorage()->string(), before);
    EXPECT_EQ(error, kUntouched);
    EXPECT_FALSE(import(path, "public.plain-text")) << "only the type makes it a PDF";
}

TEST_F(DocumentImport, BothWaysOfMakingADocument) {
    const auto imported = Document::initWithContentsOfURL(
        URL::fileURLWithPath(folder.write("a.rtf", kPicture)), "public.rtf", nullptr);
    ASSERT_NE(imported, nullptr);
    EXPECT_EQ(imported->fileURL(), std::nullopt);
    EXPECT_TRUE(imported->fileModificationDate());
    EXPECT_EQ(Document::initWithContentsOfURL(URL::fileURLWithPath(folder.path("none")),
                                              "public.rtf", nullptr),
              nullptr);
}

}  // namespace
}  // namespace parlavox
