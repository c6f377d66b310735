#include "Platform/Document/Document.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Tests/Support/TemporaryFolder.h"

namespace platform {
namespace {

/// A document that keeps the bytes it is given.
class NoteDocument final : public Document {
public:
    static std::shared_ptr<NoteDocument> init() {
        return std::make_shared<NoteDocument>(Creation());
    }
    explicit NoteDocument(Creation key) : Document(key) {}

    bool readFromData(const Data& data, const std::string& ofType, ErrorLocation) override {
        note = data.view();
        type = ofType;
        return !note.starts_with("bad");
    }
    bool openURL(const URL& url, const std::string& ofType, ErrorLocation error) {
        return initContentsOfURL(url, ofType, error);
    }

    std::string note;
    std::string type;
};

class PlainDocument final : public Document {
public:
    static std::shared_ptr<PlainDocument> init() {
        return std::make_shared<PlainDocument>(Creation());
    }
    explicit PlainDocument(Creation key) : Document(key) {}
};

TEST(Document, ReadingGoesFromTheFileToItsBytes) {
    const test::TemporaryFolder folder;
    const auto document = NoteDocument::init();
    std::optional<Error> error;
    EXPECT_TRUE(document->readFromURL(URL::fileURLWithPath(folder.write("a", "words")),
                                      "public.data", &error));
    EXPECT_EQ(document->note, "words");
    EXPECT_EQ(document->type, "public.data");
    EXPECT_EQ(error, std::nullopt);
    EXPECT_EQ(document->fileURL(), std::nullopt) << "reading alone binds to no file";
}

TEST(Document, LinksAreFollowedToTheFile) {
    const test::TemporaryFolder folder;
    const std::string file = folder.write("caf\xE9", "words");
    std::filesystem::create_symlink("caf\xE9", folder.path("link"));
    const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    for (const std::string& path :
         {file, folder.path("link"), "/proc/self/fd/" + std::to_string(descriptor)}) {
        SCOPED_TRACE(path);
        const auto document = NoteDocument::init();
        EXPECT_TRUE(document->readFromURL(URL::fileURLWithPath(path), "public.data", nullptr));
        EXPECT_EQ(document->note, "words");
    }
    ::close(descriptor);
    std::filesystem::create_symlink("nowhere", folder.path("dangling"));
    std::optional<Error> error;
    EXPECT_FALSE(NoteDocument::init()->readFromURL(URL::fileURLWithPath(folder.path("dangling")),
                                                   "public.data", &error));
    EXPECT_TRUE(error);
}

TEST(Document, FilesThatCannotBeReadLeaveThePlatformsErrors) {
    const test::TemporaryFolder folder;
    const auto document = NoteDocument::init();
    std::optional<Error> error;
    EXPECT_FALSE(
        document->readFromURL(URL::fileURLWithPath(folder.path("none")), "public.data", &error));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->domain, kCocoaErrorDomain);
    EXPECT_EQ(error->code, kFileReadNoSuchFileError);
    EXPECT_FALSE(
        document->readFromURL(URL::fileURLWithPath(folder.path("none")), "public.data", nullptr));
}

TEST(Document, FoldersAreRefusedWhereNoReaderTakesThem) {
    const test::TemporaryFolder folder;
    std::optional<Error> error;
    EXPECT_FALSE(NoteDocument::init()->readFromURL(URL::fileURLWithPath(folder.path()),
                                                   "public.folder", &error));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->domain, kCocoaErrorDomain);
    EXPECT_EQ(error->code, 256);
}

TEST(Document, BytesMeanNothingToTheBaseClass) {
    try {
        (void)PlainDocument::init()->readFromData(Data(), "public.data", nullptr);
        FAIL() << "nothing was raised";
    } catch (const InternalInconsistencyException& exception) {
        EXPECT_EQ(exception.reason(),
                  "readFromData:ofType:error: is a subclass responsibility but has not been "
                  "overridden.");
    }
    EXPECT_FALSE(Document::canConcurrentlyReadDocumentsOfType("public.data"));
}

TEST(Document, OpeningBindsToTheFileBeforeReading) {
    const test::TemporaryFolder folder;
    const URL url = URL::fileURLWithPath(folder.write("a", "words"));
    const auto document = NoteDocument::init();
    EXPECT_TRUE(document->openURL(url, "public.data", nullptr));
    EXPECT_EQ(document->fileURL(), url);
    EXPECT_EQ(document->fileType(), "public.data");
    EXPECT_TRUE(document->fileModificationDate());
    EXPECT_FALSE(document->isDocumentEdited());

    const auto bad = NoteDocument::init();
    EXPECT_FALSE(bad->openURL(URL::fileURLWithPath(folder.write("b", "bad")), "t", nullptr));
    EXPECT_EQ(bad->fileModificationDate(), std::nullopt);
}

TEST(Document, CountsChanges) {
    struct Row {
        const char* name;
        std::vector<ChangeKind> changes;
        bool edited;
    };
    using enum ChangeKind;
    const Row rows[] = {
        {"none", {}, false},
        {"one", {Done}, true},
        {"undone", {Done, Undone}, false},
        {"undone below the save counts, too", {Undone}, true},
        {"undone below the save and redone", {Undone, Undone, Redone, Redone}, false},
        {"a new change below the save ends the way back", {Undone, Done}, true},
        {"and no undoing opens it again", {Undone, Done, Undone, Redone}, true},
        {"nor does redoing", {Undone, Undone, Done, Redone}, true},
        {"only saving does", {Undone, Done, Cleared}, false},
        {"a new change at the save does not end it", {Undone, Redone, Done, Undone}, false},
        {"redone", {Done, Undone, Redone}, true},
        {"saved", {Done, Done, Cleared}, false},
        {"autosaved elsewhere", {Done, Autosaved}, true},
        {"other contents", {ReadOtherContents}, true},
        {"other contents saved", {ReadOtherContents, Cleared}, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const auto document = PlainDocument::init();
        for (const ChangeKind change : row.changes) {
            document->updateChangeCount(change);
        }
        EXPECT_EQ(document->isDocumentEdited(), row.edited);
    }
}

TEST(Document, TheUndoManagerIsMadeWhenItIsAskedFor) {
    const auto document = PlainDocument::init();
    EXPECT_EQ(document->hasUndoManager(), HasUndoManager::Yes);
    const auto manager = document->undoManager();
    ASSERT_NE(manager, nullptr);
    EXPECT_EQ(document->undoManager(), manager);
    document->setHasUndoManager(HasUndoManager::No);
    EXPECT_EQ(document->hasUndoManager(), HasUndoManager::No);
    EXPECT_EQ(document->undoManager(), nullptr);
    manager->registerUndoWithTarget(nullptr, [] {});
    manager->endEvent();
    EXPECT_FALSE(document->isDocumentEdited()) << "a manager that was given up counts no more";
    document->setHasUndoManager(HasUndoManager::Yes);
    EXPECT_NE(document->undoManager(), nullptr);
}

TEST(Document, TheUndoManagerCountsChanges) {
    const auto document = PlainDocument::init();
    const auto manager = document->undoManager();
    const std::function<void()> change = [&] {
        manager->registerUndoWithTarget(document.get(), change);
    };
    manager->beginUndoGrouping();
    manager->endUndoGrouping();
    manager->endEvent();
    EXPECT_FALSE(document->isDocumentEdited()) << "a group without actions is no change";
    manager->beginUndoGrouping();
    change();
    manager->endUndoGrouping();
    EXPECT_FALSE(document->isDocumentEdited()) << "the event has not ended";
    manager->endEvent();
    EXPECT_TRUE(document->isDocumentEdited());
    manager->undo();
    EXPECT_FALSE(document->isDocumentEdited());
    manager->undo();
    EXPECT_FALSE(document->isDocumentEdited()) << "nothing was left to undo";
    manager->redo();
    EXPECT_TRUE(document->isDocumentEdited());
}

}  // namespace
}  // namespace platform
