#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "Platform/Document/Document.h"
#include "Platform/Foundation/Bundle.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/MainQueue.h"
#include "Tests/Support/MainBundleTestPeer.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

constexpr char kType[] = "public.data";

/// A document of some bytes.
class NoteDocument : public Document {
public:
    static std::shared_ptr<NoteDocument> init() {
        return std::make_shared<NoteDocument>(Creation());
    }
    explicit NoteDocument(Creation key) : Document(key) {}

    std::optional<Data> dataOfType(const std::string& type, ErrorLocation error) override {
        if (note == "bad") {
            leaveError(error, {"Notes", 7, type});
            return std::nullopt;
        }
        if (note == "very bad") {
            raise(RangeException("very bad"));
        }
        return note == "gone" ? std::nullopt : std::optional(Data::copyOf(note));
    }
    bool canAsynchronouslyWriteToURL(const URL&, const std::string&, SaveOperation) const override {
        return isAsynchronous;
    }
    using Document::writeToURL;
    bool writeToURL(const URL& url, const std::string& type, ErrorLocation error) override {
        writer = std::this_thread::get_id();
        const bool isWritten = Document::writeToURL(url, type, error);
        if (afterUnblocking) {
            afterUnblocking();
        }
        return isWritten;
    }

    std::string note = "words";
    bool isAsynchronous = false;
    std::thread::id writer;
    std::function<void()> afterUnblocking;
};

class DocumentSaving : public testing::Test {
protected:
    /// Saves and returns how that ended.
    std::optional<Error> save(const std::string& name, SaveOperation operation) {
        std::optional<std::optional<Error>> end;
        document->saveToURL(URL::fileURLWithPath(folder.path(name)), kType, operation,
                            [&](const std::optional<Error>& error) { end = error; });
        MainQueue::mainQueue().runUntil([&] { return end.has_value(); });
        return *end;
    }

    void change() { document->updateChangeCount(ChangeKind::Done); }

    const test::TemporaryFolder folder;
    const std::shared_ptr<NoteDocument> document = NoteDocument::init();
};

TEST_F(DocumentSaving, EachKindChangesWhatItShould) {
    const struct {
        SaveOperation operation;
        bool isOwnFile;
        bool isElsewhere;
    } kRows[] = {
        {SaveOperation::Save, true, false},
        {SaveOperation::SaveAs, true, false},
        {SaveOperation::SaveTo, false, false},
        {SaveOperation::AutosaveElsewhere, false, true},
        {SaveOperation::AutosaveInPlace, true, false},
        {SaveOperation::AutosaveAs, true, false},
    };
    for (const auto& row : kRows) {
        for (const bool isAsynchronous : {false, true}) {
            SCOPED_TRACE(static_cast<int>(row.operation));
            const auto fresh = NoteDocument::init();
            fresh->isAsynchronous = isAsynchronous;
            fresh->updateChangeCount(ChangeKind::Done);
            fresh->setFileType("public.item");
            const URL url = URL::fileURLWithPath(folder.path("file"));
            bool hasEnded = false;
            fresh->saveToURL(url, kType, row.operation, [&](const std::optional<Error>& error) {
                EXPECT_EQ(error, std::nullopt);
                hasEnded = true;
            });
            EXPECT_TRUE(hasEnded || isAsynchronous);
            MainQueue::mainQueue().runUntil([&] { return hasEnded; });
            EXPECT_EQ(folder.read("file"), "words");
            EXPECT_EQ(fresh->fileURL().has_value(), row.isOwnFile);
            EXPECT_EQ(fresh->fileType(), row.isOwnFile ? kType : "public.item");
            EXPECT_EQ(fresh->fileModificationDate().has_value(), row.isOwnFile);
            EXPECT_EQ(fresh->isDocumentEdited(), !row.isOwnFile);
            EXPECT_EQ(fresh->autosavedContentsFileURL().has_value(), row.isElsewhere);
            EXPECT_EQ(fresh->writer != std::this_thread::get_id(), isAsynchronous);
        }
    }
}

TEST_F(DocumentSaving, AFailedSaveLeavesAllAsItWas) {
    folder.write("file", "old");
    const struct {
        const char* note;
        const char* name;
        Error error;
    } kRows[] = {
        {"bad", "file", {"Notes", 7, kType}},
        {"gone", "file", {std::string(kCocoaErrorDomain), 512, ""}},
        {"words", "none/file", {std::string(kCocoaErrorDomain), 4, ""}},
    };
    for (const auto& row : kRows) {
        for (const bool isAsynchronous : {false, true}) {
            SCOPED_TRACE(row.note);
            document->note = row.note;
            document->isAsynchronous = isAsynchronous;
            change();
            const auto error = save(row.name, SaveOperation::Save);
            ASSERT_TRUE(error);
            EXPECT_EQ(error->domain, row.error.domain);
            EXPECT_EQ(error->code, row.error.code);
            EXPECT_NE(error->description, "");
            EXPECT_EQ(document->fileURL(), std::nullopt);
            EXPECT_EQ(document->fileType(), std::nullopt);
            EXPECT_EQ(document->fileModificationDate(), std::nullopt);
            EXPECT_TRUE(document->isDocumentEdited());
            EXPECT_EQ(folder.read("file"), "old");
        }
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1)
        << "nothing is left over";
}

TEST_F(DocumentSaving, ChangesAreBackAfterAFailedSave) {
    change();
    document->note = "bad";
    EXPECT_TRUE(save("file", SaveOperation::Save));
    document->updateChangeCount(ChangeKind::Undone);
    EXPECT_FALSE(document->isDocumentEdited()) << "the one change was undone";
}

TEST_F(DocumentSaving, AFailedSaveKnowsWhetherTheFileWasLeftMeanwhile) {
    const struct {
        const char* name;
        std::vector<ChangeKind> before;
        std::vector<ChangeKind> meanwhile;
        bool isEdited;
    } kRows[] = {
        {"undone below the file, then changed", {ChangeKind::Undone}, {ChangeKind::Done}, true},
        {"undone and changed above the file",
         {ChangeKind::Done},
         {ChangeKind::Undone, ChangeKind::Done, ChangeKind::Undone},
         false},
        {"other contents", {}, {ChangeKind::ReadOtherContents}, true},
        {"cleared", {ChangeKind::Done}, {ChangeKind::Cleared}, false},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto fresh = NoteDocument::init();
        for (const ChangeKind kind : row.before) {
            fresh->updateChangeCount(kind);
        }
        fresh->isAsynchronous = true;
        fresh->note = "bad";
        bool hasEnded = false;
        fresh->saveToURL(URL::fileURLWithPath(folder.path("file")), kType, SaveOperation::Save,
                         [&](const std::optional<Error>& error) {
                             EXPECT_TRUE(error);
                             hasEnded = true;
                         });
        for (const ChangeKind kind : row.meanwhile) {
            fresh->updateChangeCount(kind);
        }
        MainQueue::mainQueue().runUntil([&] { return hasEnded; });
        EXPECT_EQ(fresh->isDocumentEdited(), row.isEdited);
    }
}

TEST_F(DocumentSaving, ALinkStaysAndItsFileIsWritten) {
    folder.write("file", "old");
    fs::create_symlink("file", folder.path("link"));
    EXPECT_EQ(save("link", SaveOperation::Save), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(folder.path("link")));
    EXPECT_EQ(folder.read("file"), "words");
}

TEST_F(DocumentSaving, OldFailuresAreNotBlamed) {
    noteFailure("something else");
    document->note = "gone";
    const auto error = save("file", SaveOperation::Save);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->description, folder.path("file") + ": can't be written");
}

TEST_F(DocumentSaving, WhatWritingThrowsComesOutWhereTheSaveEnds) {
    document->note = "very bad";
    const auto none = [](const std::optional<Error>&) {
        FAIL();
    };
    const URL url = URL::fileURLWithPath(folder.path("file"));
    EXPECT_THROW(document->saveToURL(url, kType, SaveOperation::Save, none), RangeException);
    document->isAsynchronous = true;
    document->saveToURL(url, kType, SaveOperation::Save, none);
    EXPECT_THROW(MainQueue::mainQueue().runUntil([] { return false; }), RangeException);
    document->note = "words";
    EXPECT_EQ(save("file", SaveOperation::Save), std::nullopt) << "the next one goes well";
}

TEST_F(DocumentSaving, TheDocumentMayChangeOnceItsDataWasTaken) {
    document->isAsynchronous = true;
    bool mayFinish = false;
    std::mutex mutex;
    document->afterUnblocking = [&] {
        while (true) {
            const std::lock_guard lock(mutex);
            if (mayFinish) {
                return;
            }
        }
    };
    change();
    bool hasEnded = false;
    document->saveToURL(URL::fileURLWithPath(folder.path("file")), kType, SaveOperation::Save,
                        [&](const std::optional<Error>&) { hasEnded = true; });
    EXPECT_FALSE(hasEnded);
    EXPECT_TRUE(document->isDocumentEdited()) << "the save has not ended";
    document->note = "later words";
    change();
    std::vector<std::string> later;
    document->saveToURL(URL::fileURLWithPath(folder.path("later")), kType, SaveOperation::SaveTo,
                        [&](const std::optional<Error>&) { later.push_back(folder.read("file")); });
    {
        const std::lock_guard lock(mutex);
        mayFinish = true;
    }
    MainQueue::mainQueue().runUntil([&] { return hasEnded; });
    EXPECT_EQ(folder.read("file"), "words");
    EXPECT_TRUE(document->isDocumentEdited()) << "what came later is not in the file";
    MainQueue::mainQueue().runUntil([&] { return !later.empty(); });
    EXPECT_EQ(folder.read("later"), "later words") << "saves follow one another";
    document->updateChangeCount(ChangeKind::Undone);
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(DocumentSaving, UndoingBelowTheSaveAndChangingAgainLeavesTheFile) {
    change();
    EXPECT_EQ(save("file", SaveOperation::Save), std::nullopt);
    EXPECT_FALSE(document->isDocumentEdited());
    document->updateChangeCount(ChangeKind::Undone);
    change();
    EXPECT_TRUE(document->isDocumentEdited());
    EXPECT_EQ(save("file", SaveOperation::Save), std::nullopt);
    EXPECT_FALSE(document->isDocumentEdited());
}

TEST_F(DocumentSaving, AReplacedFilePassesItsPermissionsOn) {
    const std::string path = folder.write("file", "old");
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    EXPECT_EQ(save("file", SaveOperation::Save), std::nullopt);
    EXPECT_EQ(folder.read("file"), "words");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST_F(DocumentSaving, ADocumentWithoutDataIsASubclassesFault) {
    class Plain final : public Document {
    public:
        static std::shared_ptr<Plain> init() { return std::make_shared<Plain>(Creation()); }
        explicit Plain(Creation key) : Document(key) {}
    };
    const auto plain = Plain::init();
    try {
        (void)plain->dataOfType(kType, nullptr);
        FAIL();
    } catch (const InternalInconsistencyException& exception) {
        EXPECT_EQ(exception.reason(),
                  "dataOfType:error: is a subclass responsibility but has not been overridden.");
    }
    EXPECT_FALSE(
        plain->canAsynchronouslyWriteToURL(URL::fileURLWithPath("/"), kType, SaveOperation::Save));
    EXPECT_FALSE(Document::autosavesInPlace());
    plain->setFileType("public.text");
    EXPECT_EQ(plain->autosavingFileType(), "public.text");
    Document::unblockUserInteraction();
}

TEST_F(DocumentSaving, TypesAreThoseThatTheProgramDeclares) {
    using Types = std::vector<std::string>;
    const MainBundleTestPeer unnamed;
    EXPECT_EQ(document->writableTypesForSaveOperation(SaveOperation::Save), Types());
    folder.write("Program.app/Contents/Info.plist",
                 "{ CFBundleDocumentTypes = ("
                 "{ CFBundleTypeRole = Editor; LSItemContentTypes = (\"org.example.own\", "
                 "\"public.rtf\"); },"
                 "{ CFBundleTypeRole = Viewer; LSItemContentTypes = (\"com.adobe.pdf\"); },"
                 "{ CFBundleTypeRole = None; LSItemContentTypes = (\"public.png\"); },"
                 "{ CFBundleTypeRole = Editor; }, none, { LSItemContentTypes = ((), a); }"
                 "); }");
    Bundle::setMainBundle(Bundle::bundleWithPath(folder.path("Program.app")));
    const Types both = {"org.example.own", "public.rtf"};
    for (const auto operation : {SaveOperation::Save, SaveOperation::SaveTo}) {
        EXPECT_EQ(document->writableTypesForSaveOperation(operation), both);
    }
    EXPECT_TRUE(Document::isNativeType("org.Example.own"));
    EXPECT_FALSE(Document::isNativeType("com.adobe.pdf"));
    EXPECT_FALSE(Document::isNativeType("public.png"));
}

}  // namespace
}  // namespace platform
