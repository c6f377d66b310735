#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "Platform/Foundation/UndoManager.h"
#include "Sources/Document/Document.h"

namespace parlavox {
namespace {

using platform::AttributedString;
using platform::Attributes;
using platform::Dictionary;
using platform::Value;

Attributes size(int points) {
    return std::make_shared<const Dictionary>(Dictionary{{"Size", Value(points)}});
}

AttributedString text(const char16_t* characters, const Attributes& attributes) {
    auto string = std::make_shared<const std::u16string>(characters);
    return {string, {{string->size(), attributes}}};
}

class DocumentText : public ::testing::Test {
protected:
    void SetUp() override { document->replaceRealStorageWithAttributedString(text(u"old", kOld)); }

    Attributes attributesAt(std::uint64_t index) const {
        return document->textStorage()->attributedString().attributesAtIndex(index);
    }

    const Attributes kOld = size(10);
    const Attributes kNew = size(12);
    const std::shared_ptr<Document> document = Document::init();
};

TEST_F(DocumentText, AttributedTextReplacesTheTextInsideTheSameStorage) {
    const auto storage = document->textStorage();
    document->setTextStorage(text(u"words", kNew));
    EXPECT_EQ(document->textStorage(), storage);
    EXPECT_EQ(storage->string(), u"words");
    EXPECT_EQ(attributesAt(0), kNew);
}

TEST_F(DocumentText, PlainTextTakesTheAttributesOfTheFirstCharacter) {
    const auto storage = document->textStorage();
    document->setTextStorage(u"words");
    EXPECT_EQ(document->textStorage(), storage);
    EXPECT_EQ(storage->string(), u"words");
    EXPECT_EQ(attributesAt(4), kOld);
}

TEST_F(DocumentText, ChangesAreUndoneAndRedone) {
    const auto storage = document->textStorage();
    document->setTextStorage(text(u"words", kNew));
    document->undoManager()->endEvent();
    document->setTextStorage(u"");
    document->undoManager()->endEvent();
    EXPECT_EQ(storage->string(), u"");

    document->undoManager()->undo();
    EXPECT_EQ(storage->string(), u"words");
    EXPECT_EQ(attributesAt(4), kNew);
    document->undoManager()->undo();
    EXPECT_EQ(storage->string(), u"old");
    EXPECT_EQ(attributesAt(0), kOld);
    EXPECT_FALSE(document->undoManager()->canUndo());

    document->undoManager()->redo();
    EXPECT_EQ(storage->string(), u"words");
    EXPECT_EQ(attributesAt(0), kNew);
    document->undoManager()->redo();
    EXPECT_EQ(storage->string(), u"");
    EXPECT_EQ(document->textStorage(), storage);
}

TEST_F(DocumentText, TheChangeCountFollows) {
    const auto manager = document->undoManager();
    EXPECT_FALSE(document->isDocumentEdited());
    document->setTextStorage(u"words");
    document->setTextStorage(u"more words");
    manager->endEvent();
    EXPECT_TRUE(document->isDocumentEdited());
    manager->undo();
    EXPECT_FALSE(document->isDocumentEdited()) << "an event is one change";
    manager->redo();
    EXPECT_TRUE(document->isDocumentEdited());
    document->updateChangeCount(platform::ChangeKind::Cleared);
    manager->undo();
    EXPECT_TRUE(document->isDocumentEdited()) << "before the save";
}

TEST_F(DocumentText, WithoutAnUndoManagerTheTextIsStillReplaced) {
    document->setHasUndoManager(platform::HasUndoManager::No);
    document->setTextStorage(u"words");
    EXPECT_EQ(document->textStorage()->string(), u"words");
}

TEST_F(DocumentText, AManagerThatOutlivesTheDocumentUndoesNothing) {
    auto mortal = Document::init();
    mortal->setTextStorage(u"words");
    const auto storage = mortal->textStorage();
    const auto manager = mortal->undoManager();
    mortal.reset();
    manager->undo();
    EXPECT_EQ(storage->string(), u"words");
}

TEST_F(DocumentText, ReplacingTheRealStorageRegistersNoUndo) {
    EXPECT_FALSE(document->undoManager()->canUndo());
    document->setCursorLocation(3);
    document->setEditing(Editing::No);
    EXPECT_FALSE(document->undoManager()->canUndo()) << "nor do the plain accessors";
    EXPECT_FALSE(document->isDocumentEdited());
}

}  // namespace
}  // namespace parlavox
