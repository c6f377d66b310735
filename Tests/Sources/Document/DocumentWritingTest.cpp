#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Bundle.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/Log.h"
#include "Platform/Foundation/MainQueue.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Text/TextAttachment.h"
#include "Sources/Document/Document.h"
#include "Sources/Document/DocumentNotifications.h"
#include "Sources/Document/ExportTypes.h"
#include "Sources/Document/TextUnarchiver.h"
#include "Tests/Support/MainBundleTestPeer.h"
#include "Tests/Support/TemporaryDirectory.h"
#include "Tests/Support/TemporaryFolder.h"

namespace parlavox {
namespace {

namespace fs = std::filesystem;
using platform::AttributedString;
using platform::Data;
using platform::Dictionary;
using platform::Error;
using platform::MainQueue;
using platform::NotificationCenter;
using platform::SaveOperation;
using platform::URL;
using platform::Value;

std::vector<std::string> logged;

void rememberLine(std::string_view line) {
    logged.emplace_back(line);
}

/// Text with a tag, an attachment, behind each of its letters.
AttributedString tagged(const std::u16string& letters) {
    const auto tag = std::make_shared<const Dictionary>(
        Dictionary{{platform::kAttachmentAttributeName,
                    Value(std::static_pointer_cast<const platform::Object>(
                        std::make_shared<const platform::TextAttachment>(nullptr)))}});
    auto string = std::make_shared<std::u16string>();
    std::vector<platform::AttributeRun> runs;
    for (const char16_t letter : letters) {
        *string += letter;
        *string += platform::kAttachmentCharacter;
        platform::appendRun(runs, 1, nullptr);
        platform::appendRun(runs, 1, tag);
    }
    return {string, runs};
}

Value rootOf(const Data& archive) {
    return TextUnarchiver::initWithTagValuesDictionary(nullptr, archive)->decodeObject();
}

class DocumentWriting : public testing::Test {
protected:
    void SetUp() override {
        logged.clear();
        platform::setLogSink(rememberLine);
        document->replaceRealStorageWithAttributedString(AttributedString(u"words"));
    }
    void TearDown() override { platform::setLogSink(nullptr); }

    std::optional<Error> save(const std::string& name, const char* type, SaveOperation operation) {
        std::optional<std::optional<Error>> end;
        document->saveToURL(URL::fileURLWithPath(folder.path(name)), type, operation,
                            [&](const std::optional<Error>& error) { end = error; });
        MainQueue::mainQueue().runUntil([&] { return end.has_value(); });
        return *end;
    }

    std::shared_ptr<ZipWrapper> saved() {
        EXPECT_EQ(save("file", kDocumentType, SaveOperation::Save), std::nullopt);
        return ZipWrapper::initWithPath(folder.path("file"));
    }

    static Value header(const ZipWrapper& package) {
        const auto contents = package.fileWrapperForKey("contents.plist")->regularFileContents();
        EXPECT_TRUE(contents->view().starts_with("<?xml"));
        const auto root = platform::PropertyListSerialization::propertyListWithData(*contents);
        EXPECT_EQ(root.value().dictionary()->size(), 1u);
        return (*root.value().dictionary())["header"];
    }

    const platform::MainBundleTestPeer unnamed;
    const test::TemporaryDirectory temporary;
    const test::TemporaryFolder folder;
    const std::shared_ptr<Document> document = Document::init();
};

std::vector<std::string> namesIn(const ZipWrapper& package) {
    std::vector<std::string> names;
    for (const auto& [key, child] : package.fileWrappers()) {
        names.push_back(key);
    }
    return names;
}

TEST_F(DocumentWriting, APackageHasSettingsAndHeaderButNoText) {
    const auto package = saved();
    EXPECT_EQ(namesIn(*package),
              (std::vector<std::string>{"documentSettings.plist", "contents.plist"}));
    const auto settings =
        package->fileWrapperForKey("documentSettings.plist")->regularFileContents();
    EXPECT_TRUE(rootOf(*settings).isNull());
    const std::string bytes = folder.read("file");
    EXPECT_NE(bytes.find("<key>header</key>"), std::string::npos) << "all is stored";
    const auto again = Document::init();
    EXPECT_TRUE(
        again->readFromURL(URL::fileURLWithPath(folder.path("file")), kDocumentType, nullptr));
    EXPECT_EQ(again->textStorage()->string(), u"");
    EXPECT_EQ(document->textStorage()->string(), u"words") << "saving changes no text";
}

TEST_F(DocumentWriting, TemplatesAreSavedInFront) {
    document->insertCustomTagTemplates({Value(u"a"), Value(7)}, {0, 1}, "");
    const auto package = saved();
    EXPECT_EQ(namesIn(*package),
              (std::vector<std::string>{"tagTemplates.plist", "documentSettings.plist",
                                        "contents.plist"}));
    const auto templates = package->fileWrapperForKey("tagTemplates.plist")->regularFileContents();
    EXPECT_EQ(rootOf(*templates), Value(platform::Array{Value(u"a"), Value(7)}));
    document->removeCustomTagTemplatesAtIndexes({0, 1}, "");
    EXPECT_EQ(saved()->fileWrapperForKey("tagTemplates.plist"), nullptr);
}

TEST_F(DocumentWriting, TheHeaderNamesTheProgram) {
    platform::Bundle::setMainBundle("org.example.reader", "3.1");
    const Value value = header(*saved());
    const Dictionary& header = *value.dictionary();
    EXPECT_EQ(header.size(), 5u);
    EXPECT_EQ(header["application"], Value(u"org.example.reader"));
    EXPECT_EQ(header["application_version"], Value(u"3.1"));
    EXPECT_EQ(header["document_format_version"], Value(1));
    EXPECT_EQ(header["compatibility_version"], Value(2));
    EXPECT_TRUE(header["created"].date());
    EXPECT_TRUE(logged.empty());
}

TEST_F(DocumentWriting, AProgramWithoutANameIsLogged) {
    const Value value = header(*saved());
    EXPECT_EQ((*value.dictionary())["application"], Value(u"parlavox"));
    EXPECT_EQ((*value.dictionary())["application_version"], Value(u"???"));
    EXPECT_EQ(logged, (std::vector<std::string>{"Failed to get bundle ID of application.",
                                                "Failed to get bundle version of application."}));
}

TEST_F(DocumentWriting, AHeaderThatCannotBeWrittenIsLeftOut) {
    // A control character, which XML can't hold.
    platform::Bundle::setMainBundle("a\x01", "1");
    const auto package = saved();
    EXPECT_EQ(namesIn(*package), (std::vector<std::string>{"documentSettings.plist"}));
    ASSERT_EQ(logged.size(), 1u);
    EXPECT_TRUE(logged[0].starts_with("Failed to create document's metadata. Error = "));
    EXPECT_TRUE(logged[0].ends_with("."));
    EXPECT_FALSE(Document::init()->readFromURL(URL::fileURLWithPath(folder.path("file")),
                                               kDocumentType, nullptr));
}

TEST_F(DocumentWriting, EachSaveHasADateOfItsOwn) {
    static double now = 0;
    for (const double seconds : {1000.0, 1001.0}) {
        now = seconds;
        const platform::ClockScope clock([] { return platform::Date{now}; });
        // On this thread, whose clock it is.
        ASSERT_TRUE(document->writeToURL(URL::fileURLWithPath(folder.path("file")), kDocumentType,
                                         nullptr));
        const Value value = header(*ZipWrapper::initWithPath(folder.path("file")));
        EXPECT_EQ((*value.dictionary())["created"].date(), platform::Date{seconds});
    }
}

TEST_F(DocumentWriting, WhatCannotBeArchivedIsLeftOut) {
    class Formless final : public platform::Object {};
    const Value formless(
        std::static_pointer_cast<const platform::Object>(std::make_shared<const Formless>()));
    document->insertCustomTagTemplates({formless}, {0}, "");
    const auto package = saved();
    EXPECT_EQ(namesIn(*package),
              (std::vector<std::string>{"documentSettings.plist", "contents.plist"}));
}

TEST_F(DocumentWriting, ASaveEndsTheEvent) {
    document->insertCustomTagTemplates({Value(u"a")}, {0}, "");
    EXPECT_TRUE(document->undoManager()->hasOpenActions());
    (void)saved();
    EXPECT_FALSE(document->isDocumentEdited());
    document->undoManager()->endEvent();
    EXPECT_FALSE(document->isDocumentEdited());
    document->undoManager()->undo();
    EXPECT_TRUE(document->isDocumentEdited()) << "the file holds what was undone";
}

TEST_F(DocumentWriting, TheForeignTypeIsThePackageToo) {
    EXPECT_EQ(save("file", kForeignDocumentType, SaveOperation::SaveAs), std::nullopt);
    EXPECT_EQ(ZipWrapper::initWithPath(folder.path("file"))->fileWrappers().size(), 2u);
    EXPECT_EQ(document->fileType(), kForeignDocumentType);
}

TEST_F(DocumentWriting, TextIsExportedWithoutTags) {
    document->replaceRealStorageWithAttributedString(tagged(u"a\u00E9\n"));
    EXPECT_EQ(save("out.txt", kTextWithoutTagsType, SaveOperation::SaveTo), std::nullopt);
    EXPECT_EQ(folder.read("out.txt"), "a\xC3\xA9\n");
    EXPECT_EQ(save("out.rtf", kRtfWithoutTagsType, SaveOperation::SaveTo), std::nullopt);
    const std::string rtf = folder.read("out.rtf");
    EXPECT_TRUE(rtf.starts_with("{\\rtf1"));
    EXPECT_NE(rtf.find("a\\u233\\'3f\\par\n"), std::string::npos);
    EXPECT_TRUE(document->textStorage()->string().size() == 6) << "the document keeps them";
}

TEST_F(DocumentWriting, AnEmptyTextIsExportedAsSuch) {
    document->replaceRealStorageWithAttributedString(AttributedString());
    EXPECT_EQ(document->dataOfType(kTextWithoutTagsType, nullptr), Data());
    const auto rtf = document->dataOfType(kRtfWithoutTagsType, nullptr);
    ASSERT_TRUE(rtf);
    EXPECT_TRUE(rtf->view().starts_with("{\\rtf1") && rtf->view().ends_with("}\n"));
}

TEST_F(DocumentWriting, OtherTypesCannotBeWritten) {
    std::optional<Error> error;
    for (const char* type : {"public.plain-text", "public.rtf", "com.adobe.pdf", ""}) {
        EXPECT_EQ(document->dataOfType(type, &error), std::nullopt);
        EXPECT_EQ(error, std::nullopt);
        const auto failure = save("out", type, SaveOperation::SaveTo);
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->code, 512);
        EXPECT_FALSE(fs::exists(folder.path("out")));
    }
}

TEST_F(DocumentWriting, OffersTheExportTypesForACopyOnly) {
    using Types = std::vector<std::string>;
    EXPECT_EQ(
        document->writableTypesForSaveOperation(SaveOperation::SaveTo),
        (Types{"com.brightmill.parlavox.rtf-no-tags", "com.brightmill.parlavox.txt-no-tags"}));
    for (const auto operation :
         {SaveOperation::Save, SaveOperation::SaveAs, SaveOperation::AutosaveElsewhere,
          SaveOperation::AutosaveInPlace, SaveOperation::AutosaveAs}) {
        EXPECT_EQ(document->writableTypesForSaveOperation(operation), Types());
    }
    EXPECT_TRUE(Document::autosavesInPlace());
}

TEST_F(DocumentWriting, PackagesMayBeSavedOnAnotherThread) {
    const URL url = URL::fileURLWithPath("/");
    for (const char* type : {kDocumentType, kForeignDocumentType}) {
        EXPECT_TRUE(document->canAsynchronouslyWriteToURL(url, type, SaveOperation::Save));
    }
    EXPECT_FALSE(
        document->canAsynchronouslyWriteToURL(url, kTextWithoutTagsType, SaveOperation::SaveTo));
}

TEST_F(DocumentWriting, TellsOfASaveAfterItsHandler) {
    std::string told;
    const auto token = NotificationCenter::defaultCenter().addObserverForName(
        DocumentDidSaveNotification, document.get(), [&](const platform::Notification& posted) {
            EXPECT_EQ(posted.userInfo.size(), 0u);
            told += "posted ";
        });
    const struct {
        std::string path;
        const char* type;
        const char* told;
    } kRows[] = {
        {folder.path("file"), kDocumentType, "handled posted "},
        {folder.path("file"), kTextWithoutTagsType, "handled posted "},
        {folder.path("none/file"), kDocumentType, "failed "},
        {folder.path("file"), "public.data", "failed "},
    };
    for (const auto& row : kRows) {
        told.clear();
        document->saveToURL(
            URL::fileURLWithPath(row.path), row.type, SaveOperation::SaveTo,
            [&](const std::optional<Error>& error) { told += error ? "failed " : "handled "; });
        MainQueue::mainQueue().runUntil([&] { return !told.empty(); });
        MainQueue::mainQueue().run();
        EXPECT_EQ(told, row.told);
    }
    told.clear();
    document->saveToURL(URL::fileURLWithPath(folder.path("file")), kDocumentType,
                        SaveOperation::Save, nullptr);
    MainQueue::mainQueue().runUntil([&] { return !told.empty(); });
    EXPECT_EQ(told, "posted ");
    NotificationCenter::defaultCenter().removeObserver(token);
}

TEST_F(DocumentWriting, AnswersTheFastestLevel) {
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers({});
    EXPECT_EQ(document->compressLevelForFileWrapper(nullptr, *archive), 1u);
}

}  // namespace
}  // namespace parlavox
