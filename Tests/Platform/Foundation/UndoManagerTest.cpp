#include "Platform/Foundation/UndoManager.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

/// Letters that are written and taken away again, each with an action for the opposite.
class Page {
public:
    explicit Page(UndoManager& manager) : manager_(manager) {}

    void add(char letter) {
        manager_.registerUndoWithTarget(this, [this] { remove(); });
        text += letter;
    }

    std::string text;

private:
    void remove() {
        const char letter = text.back();
        text.pop_back();
        manager_.registerUndoWithTarget(this, [this, letter] { add(letter); });
    }

    UndoManager& manager_;
};

class UndoManagerTest : public ::testing::Test {
protected:
    /// Adds the letters, each in an event of its own.
    void addEach(const std::string& letters) {
        for (const char letter : letters) {
            page.add(letter);
            manager.endEvent();
        }
    }

    UndoManager manager;
    Page page{manager};
};

TEST_F(UndoManagerTest, NewManagersHaveTheirDefaults) {
    EXPECT_EQ(manager.groupsByEvent(), GroupsByEvent::Yes);
    EXPECT_EQ(manager.levelsOfUndo(), 0u);
    EXPECT_TRUE(manager.isUndoRegistrationEnabled());
    EXPECT_FALSE(manager.canUndo());
    EXPECT_FALSE(manager.canRedo());
    EXPECT_EQ(manager.groupingLevel(), 0u);
    manager.undo();
    manager.redo();
    EXPECT_FALSE(manager.canUndo()) << "nothing to do is no error";
}

TEST_F(UndoManagerTest, GoesBackAndForth) {
    addEach("abc");
    manager.undo();
    EXPECT_EQ(page.text, "ab");
    manager.undo();
    EXPECT_EQ(page.text, "a");
    manager.redo();
    EXPECT_EQ(page.text, "ab");
    EXPECT_TRUE(manager.canUndo());
    EXPECT_TRUE(manager.canRedo());
    manager.redo();
    EXPECT_EQ(page.text, "abc");
    EXPECT_FALSE(manager.canRedo());
    for (int i = 0; i < 4; ++i) {
        manager.undo();
    }
    EXPECT_EQ(page.text, "");
    EXPECT_FALSE(manager.canUndo());
}

TEST_F(UndoManagerTest, ActionsOfAnEventAreOneGroupFromTheLastToTheFirst) {
    page.add('a');
    page.add('b');
    EXPECT_EQ(manager.groupingLevel(), 1u);
    EXPECT_TRUE(manager.canUndo()) << "in the open group";
    manager.endEvent();
    EXPECT_EQ(manager.groupingLevel(), 0u);
    page.add('c');
    manager.undo();
    EXPECT_EQ(page.text, "ab") << "undoing ends the event";
    manager.undo();
    EXPECT_EQ(page.text, "");
    manager.redo();
    EXPECT_EQ(page.text, "ab");
}

TEST_F(UndoManagerTest, ANewActionEndsRedoing) {
    addEach("ab");
    manager.undo();
    addEach("c");
    EXPECT_FALSE(manager.canRedo());
    manager.redo();
    EXPECT_EQ(page.text, "ac");
}

TEST_F(UndoManagerTest, GroupsInsideBecomePartOfTheOuter) {
    manager.beginUndoGrouping();
    EXPECT_EQ(manager.groupingLevel(), 2u) << "the event's, too";
    page.add('a');
    manager.beginUndoGrouping();
    page.add('b');
    manager.endUndoGrouping();
    manager.endUndoGrouping();
    EXPECT_EQ(manager.groupingLevel(), 1u);
    page.add('c');
    manager.undo();
    EXPECT_EQ(page.text, "");
}

TEST_F(UndoManagerTest, WithoutEventsGroupsAreOpenedByHand) {
    manager.setGroupsByEvent(GroupsByEvent::No);
    EXPECT_THROW(page.add('a'), InternalInconsistencyException);
    manager.beginUndoGrouping();
    EXPECT_EQ(manager.groupingLevel(), 1u);
    page.add('b');
    manager.endEvent();
    EXPECT_EQ(manager.groupingLevel(), 1u) << "it was not opened for an event";
    manager.undo();
    EXPECT_EQ(page.text, "") << "undoing closes a single group";
    EXPECT_EQ(manager.groupingLevel(), 0u);
}

TEST_F(UndoManagerTest, EmptyGroupsAreForgotten) {
    addEach("a");
    manager.beginUndoGrouping();
    manager.endUndoGrouping();
    manager.undo();
    EXPECT_EQ(page.text, "");
}

TEST_F(UndoManagerTest, UnbalancedCallsRaise) {
    EXPECT_THROW(manager.endUndoGrouping(), InternalInconsistencyException);
    EXPECT_THROW(manager.enableUndoRegistration(), InternalInconsistencyException);
    addEach("a");
    manager.beginUndoGrouping();
    EXPECT_THROW(manager.undo(), InternalInconsistencyException);
    EXPECT_EQ(manager.groupingLevel(), 2u);
    manager.endUndoGrouping();
    manager.undo();
    EXPECT_EQ(page.text, "");
}

TEST_F(UndoManagerTest, UndoInsideUndoRaisesAndTheManagerStaysUsable) {
    for (const bool redoes : {false, true}) {
        manager.registerUndoWithTarget(this, [&] { redoes ? manager.redo() : manager.undo(); });
        EXPECT_THROW(manager.undo(), InternalInconsistencyException);
        EXPECT_FALSE(manager.isUndoing());
        EXPECT_EQ(manager.groupingLevel(), 0u);
    }
    manager.registerUndoWithTarget(this, [] { throw std::runtime_error("lost"); });
    EXPECT_THROW(manager.undo(), std::runtime_error);
    addEach("a");
    manager.undo();
    manager.redo();
    EXPECT_EQ(page.text, "a");
}

TEST_F(UndoManagerTest, GroupsLeftOpenByAnActionAreClosed) {
    manager.registerUndoWithTarget(this, [&] {
        EXPECT_TRUE(manager.isUndoing());
        manager.beginUndoGrouping();
        page.add('a');
        manager.endEvent();
    });
    manager.undo();
    EXPECT_EQ(manager.groupingLevel(), 0u);
    EXPECT_TRUE(manager.canRedo());
    EXPECT_FALSE(manager.canUndo());
    manager.redo();
    EXPECT_EQ(page.text, "");
}

TEST_F(UndoManagerTest, NothingIsRegisteredWhileDisabled) {
    manager.disableUndoRegistration();
    manager.disableUndoRegistration();
    addEach("a");
    manager.enableUndoRegistration();
    EXPECT_FALSE(manager.isUndoRegistrationEnabled());
    addEach("b");
    manager.enableUndoRegistration();
    addEach("c");
    manager.undo();
    manager.undo();
    EXPECT_EQ(page.text, "ab");
}

TEST_F(UndoManagerTest, LevelsBoundHowFarOneGoesBack) {
    manager.setLevelsOfUndo(2);
    addEach("abc");
    for (int i = 0; i < 3; ++i) {
        manager.undo();
    }
    EXPECT_EQ(page.text, "a");
    manager.setLevelsOfUndo(1);
    manager.redo();
    EXPECT_EQ(page.text, "ab");
    EXPECT_FALSE(manager.canRedo()) << "the older of both was forgotten";
}

TEST_F(UndoManagerTest, ActionsAreForgottenByTarget) {
    Page other(manager);
    addEach("a");
    other.add('x');
    page.add('b');
    manager.endEvent();
    other.add('y');
    manager.endEvent();
    page.add('c');
    manager.removeAllActionsWithTarget(&page);
    manager.undo();
    EXPECT_EQ(other.text, "x") << "the open group holds nothing any more";
    manager.removeAllActionsWithTarget(&other);
    EXPECT_FALSE(manager.canUndo());
    EXPECT_FALSE(manager.canRedo());
    EXPECT_EQ(page.text, "abc");
}

TEST_F(UndoManagerTest, AllActionsAreForgotten) {
    addEach("ab");
    manager.undo();
    manager.disableUndoRegistration();
    manager.removeAllActions();
    EXPECT_FALSE(manager.canUndo());
    EXPECT_FALSE(manager.canRedo());
    EXPECT_TRUE(manager.isUndoRegistrationEnabled());
    page.add('c');
    manager.removeAllActions();
    EXPECT_FALSE(manager.canUndo());
    EXPECT_EQ(manager.groupingLevel(), 1u);
    manager.endEvent();
    EXPECT_FALSE(manager.canUndo());
}

TEST_F(UndoManagerTest, TargetsAreNotKeptAlive) {
    const auto target = std::make_shared<int>(7);
    manager.registerUndoWithTarget(target.get(), [] {});
    EXPECT_EQ(target.use_count(), 1);
}

TEST_F(UndoManagerTest, ActionNamesGoWithTheirGroups) {
    manager.setActionName(u"Nothing Open");
    EXPECT_EQ(manager.undoActionName(), u"");
    EXPECT_EQ(manager.undoMenuItemTitle(), u"Undo");
    page.add('a');
    manager.setActionName(u"Typing");
    EXPECT_EQ(manager.undoActionName(), u"Typing") << "of the open group";
    manager.endEvent();
    EXPECT_EQ(manager.undoMenuItemTitle(), u"Undo Typing");
    EXPECT_EQ(manager.redoMenuItemTitle(), u"Redo");
    manager.undo();
    EXPECT_EQ(manager.undoActionName(), u"");
    EXPECT_EQ(manager.redoActionName(), u"Typing");
    EXPECT_EQ(manager.redoMenuItemTitle(), u"Redo Typing");
    manager.redo();
    EXPECT_EQ(manager.undoActionName(), u"Typing");
    addEach("b");
    EXPECT_EQ(manager.undoActionName(), u"") << "of a group without a name";
}

TEST_F(UndoManagerTest, ActionNamesCanBeTakenAwayAndComeFromInside) {
    page.add('a');
    manager.setActionName(u"Typing");
    manager.disableUndoRegistration();
    manager.setActionName(u"Pasting");
    manager.enableUndoRegistration();
    EXPECT_EQ(manager.undoActionName(), u"Typing");
    manager.setActionName(u"");
    EXPECT_EQ(manager.undoActionName(), u"");
    manager.beginUndoGrouping();
    manager.setActionName(u"Inside");
    EXPECT_EQ(manager.undoActionName(), u"Inside");
    manager.endUndoGrouping();
    manager.endEvent();
    EXPECT_EQ(manager.undoActionName(), u"Inside");
}

TEST_F(UndoManagerTest, ObserversAreToldInOrder) {
    using enum UndoEvent;
    std::vector<UndoEvent> events;
    manager.addObserver([&](UndoEvent event) { events.push_back(event); });
    const auto take = [&] {
        return std::exchange(events, {});
    };
    page.add('a');
    EXPECT_EQ(take(), (std::vector{DidOpenUndoGroup}));
    manager.beginUndoGrouping();
    EXPECT_EQ(take(), (std::vector{Checkpoint, DidOpenUndoGroup}));
    manager.endUndoGrouping();
    EXPECT_EQ(take(), (std::vector{Checkpoint, WillCloseUndoGroup}));
    manager.undo();
    EXPECT_EQ(take(), (std::vector{Checkpoint, WillCloseUndoGroup, Checkpoint, WillUndoChange,
                                   DidOpenUndoGroup, DidUndoChange}));
    EXPECT_TRUE(manager.canRedo());
    EXPECT_EQ(take(), (std::vector{Checkpoint}));
    manager.redo();
    EXPECT_EQ(take(), (std::vector{Checkpoint, WillRedoChange, DidOpenUndoGroup, DidRedoChange}));
    manager.redo();
    EXPECT_EQ(take(), (std::vector{Checkpoint})) << "nothing to redo";
}

TEST_F(UndoManagerTest, ObserversMayAddObservers) {
    int calls = 0;
    manager.addObserver([&](UndoEvent) {
        if (++calls == 1) {
            for (int i = 0; i < 100; ++i) {
                manager.addObserver([&](UndoEvent) { ++calls; });
            }
        }
    });
    page.add('a');
    EXPECT_EQ(calls, 101);
}

}  // namespace
}  // namespace platform
