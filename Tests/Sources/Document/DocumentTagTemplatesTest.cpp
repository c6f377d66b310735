#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Platform/Foundation/Bundle.h"
#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/NotificationCenter.h"
#include "Sources/Document/Document.h"
#include "Sources/Document/DocumentNotifications.h"
#include "Tests/Support/MainBundleTestPeer.h"
#include "Tests/Support/TemporaryFolder.h"

namespace parlavox {
namespace {

using platform::Array;
using platform::IndexSet;
using platform::Notification;
using platform::NotificationCenter;
using platform::Value;

Array templates(const std::u16string& letters) {
    Array array;
    for (const char16_t letter : letters) {
        array.emplace_back(std::u16string(1, letter));
    }
    return array;
}

class DocumentTagTemplates : public testing::Test {
protected:
    DocumentTagTemplates()
        : token_(NotificationCenter::defaultCenter().addObserverForName(
              DocumentCustomTagTemplatesDidChangeNotification, document.get(),
              [this](const Notification& notification) { told.push_back(notification); })) {}
    ~DocumentTagTemplates() override { NotificationCenter::defaultCenter().removeObserver(token_); }

    /// Starts from a list, without steps to undo.
    void startWith(const std::u16string& letters) {
        const auto range = IndexSet::indexSetWithIndexesInRange({0, letters.size()});
        document->insertCustomTagTemplates(templates(letters), range, "");
        document->undoManager()->removeAllActions();
        document->undoManager()->endEvent();
        told.clear();
    }

    std::u16string list() const {
        std::u16string letters;
        for (const Value& value : document->customTagTemplates().value_or(Array())) {
            letters += *value.string();
        }
        return letters;
    }

    static IndexSet indexesOf(const Notification& notification) {
        const auto object = notification.userInfo[kDocumentIndexSetKey].object();
        return dynamic_cast<const IndexSet&>(*object);
    }

    const std::shared_ptr<Document> document = Document::init();
    std::vector<Notification> told;

private:
    const NotificationCenter::Token token_;
};

TEST_F(DocumentTagTemplates, AreInsertedAtTheirIndexes) {
    startWith(u"ab");
    document->insertCustomTagTemplates(templates(u"xy"), {0, 2}, "");
    EXPECT_EQ(list(), u"xayb");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].userInfo.size(), 2u);
    EXPECT_EQ(told[0].userInfo[kDocumentNewCustomTagTemplatesKey], Value(templates(u"xy")));
    EXPECT_EQ(indexesOf(told[0]), (IndexSet{0, 2}));
    document->undoManager()->undo();
    EXPECT_EQ(list(), u"ab");
    ASSERT_EQ(told.size(), 2u);
    EXPECT_EQ(told[1].userInfo.size(), 1u);
    EXPECT_EQ(indexesOf(told[1]), (IndexSet{0, 2}));
    document->undoManager()->redo();
    EXPECT_EQ(list(), u"xayb");
    EXPECT_EQ(told.size(), 3u);
}

TEST_F(DocumentTagTemplates, AreRemovedAndComeBack) {
    startWith(u"abcd");
    document->removeCustomTagTemplatesAtIndexes({1, 3}, "");
    EXPECT_EQ(list(), u"ac");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].userInfo.size(), 1u);
    EXPECT_EQ(indexesOf(told[0]), (IndexSet{1, 3}));
    document->undoManager()->undo();
    EXPECT_EQ(list(), u"abcd");
    EXPECT_EQ(told[1].userInfo[kDocumentNewCustomTagTemplatesKey], Value(templates(u"bd")));
}

TEST_F(DocumentTagTemplates, AreMovedAndMovedBack) {
    startWith(u"abc");
    document->moveCustomTagTemplateAtIndex(0, 2, "");
    EXPECT_EQ(list(), u"bca");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].userInfo.size(), 2u);
    EXPECT_EQ(told[0].userInfo[kDocumentOldIndexOfCustomTagTemplateKey], Value(0));
    EXPECT_EQ(told[0].userInfo[kDocumentNewIndexOfCustomTagTemplateKey], Value(2));
    document->undoManager()->undo();
    EXPECT_EQ(list(), u"abc");
    EXPECT_EQ(told[1].userInfo[kDocumentOldIndexOfCustomTagTemplateKey], Value(2));
    EXPECT_EQ(told[1].userInfo[kDocumentNewIndexOfCustomTagTemplateKey], Value(0));
}

TEST_F(DocumentTagTemplates, NoPlaceForSomeTemplatesDoesNothing) {
    startWith(u"ab");
    document->insertCustomTagTemplates(templates(u"x"), {}, "Insert");
    EXPECT_EQ(list(), u"ab");
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(document->undoManager()->canUndo());
    document->insertCustomTagTemplates({}, {}, "Insert");
    EXPECT_EQ(told.size(), 1u) << "nothing at no place is a step that changes nothing";
    EXPECT_TRUE(document->undoManager()->canUndo());
}

TEST_F(DocumentTagTemplates, TheFirstInsertMakesTheList) {
    EXPECT_EQ(document->customTagTemplates(), std::nullopt);
    document->insertCustomTagTemplates(templates(u"a"), {0}, "");
    EXPECT_EQ(list(), u"a");
    EXPECT_TRUE(document->isDocumentEdited() || document->undoManager()->hasOpenActions());
    document->undoManager()->endEvent();
    EXPECT_TRUE(document->isDocumentEdited()) << "as the undo manager has it";
}

TEST_F(DocumentTagTemplates, HoldersOfTheOldListKeepIt) {
    startWith(u"ab");
    const Array before = *document->customTagTemplates();
    document->removeCustomTagTemplatesAtIndexes({0}, "");
    EXPECT_EQ(before, templates(u"ab"));
}

TEST_F(DocumentTagTemplates, IndexesOutsideRaiseAsArraysDo) {
    startWith(u"ab");
    const auto manager = document->undoManager();
    EXPECT_THROW(document->removeCustomTagTemplatesAtIndexes({2}, ""), platform::RangeException);
    EXPECT_FALSE(manager->hasOpenActions()) << "removing registers nothing then";
    EXPECT_THROW(document->insertCustomTagTemplates(templates(u"x"), {3}, ""),
                 platform::RangeException);
    EXPECT_TRUE(manager->hasOpenActions());
    EXPECT_THROW(document->insertCustomTagTemplates(templates(u"xy"), {0}, ""),
                 platform::InvalidArgumentException);
    EXPECT_THROW(document->moveCustomTagTemplateAtIndex(2, 0, ""), platform::RangeException);
    EXPECT_THROW(document->moveCustomTagTemplateAtIndex(0, 2, ""), platform::RangeException);
    EXPECT_EQ(list(), u"ab");
    EXPECT_TRUE(told.empty());
}

TEST_F(DocumentTagTemplates, StepsAreNamedInTheUsersLanguage) {
    startWith(u"ab");
    const auto manager = document->undoManager();
    document->moveCustomTagTemplateAtIndex(0, 1, "Move");
    EXPECT_EQ(manager->undoActionName(), u"Move");
    document->moveCustomTagTemplateAtIndex(0, 1, "");
    EXPECT_EQ(manager->undoActionName(), u"Move") << "an empty name leaves the name";
    manager->endEvent();
    const platform::MainBundleTestPeer unnamed;
    const test::TemporaryFolder folder;
    folder.write("a.app/Contents/Resources/Localizable.strings", "Move = Bewegen;");
    platform::Bundle::setMainBundle(platform::Bundle::bundleWithPath(folder.path("a.app")));
    document->moveCustomTagTemplateAtIndex(0, 1, "Move");
    EXPECT_EQ(manager->undoActionName(), u"Bewegen");
    manager->undo();
    EXPECT_EQ(manager->redoActionName(), u"Bewegen");
}

TEST_F(DocumentTagTemplates, AnySequenceCanBeUndoneAndRedone) {
    std::mt19937 random(1);
    for (int round = 0; round < 50; round++) {
        startWith(u"");
        document->removeCustomTagTemplatesAtIndexes(
            IndexSet::indexSetWithIndexesInRange({0, list().size()}), "");
        document->setTextStorage(std::u16string());
        document->undoManager()->endEvent();
        document->undoManager()->removeAllActions();
        using State = std::pair<std::u16string, std::u16string>;
        const auto state = [this] {
            return State(list(), document->textStorage()->string());
        };
        std::vector<State> states = {state()};
        for (int step = 0; step < 20; step++) {
            const std::uint64_t size = list().size();
            const std::uint64_t one = size == 0 ? 0 : random() % size;
            const std::uint64_t other = size == 0 ? 0 : random() % size;
            switch (size == 0 ? 0 : random() % 4) {
                case 0:
                    document->insertCustomTagTemplates(
                        templates(std::u16string(1, static_cast<char16_t>(u'a' + step))),
                        {random() % (size + 1)}, "Insert");
                    break;
                case 1:
                    document->removeCustomTagTemplatesAtIndexes({one, other}, "Remove");
                    break;
                case 2:
                    document->moveCustomTagTemplateAtIndex(one, other, "Move");
                    break;
                default:
                    document->setTextStorage(std::u16string(random() % 9, u'x'));
                    break;
            }
            document->undoManager()->endEvent();
            states.push_back(state());
        }
        for (std::size_t i = states.size() - 1; i-- > 0;) {
            document->undoManager()->undo();
            ASSERT_EQ(state(), states[i]);
        }
        EXPECT_FALSE(document->undoManager()->canUndo());
        for (std::size_t i = 1; i < states.size(); i++) {
            document->undoManager()->redo();
            ASSERT_EQ(state(), states[i]);
        }
    }
}

}  // namespace
}  // namespace parlavox
