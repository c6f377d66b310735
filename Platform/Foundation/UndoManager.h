// Remembers how to take changes back, and how to make them again.
//
// Whoever changes something registers an action that makes the opposite change. Actions are
// gathered in groups; undoing runs the last group's actions from the last to the first, and what
// they register meanwhile becomes the group that redoes it. The first action after an event opens a
// group of its own accord; `endEvent` closes it, where there is no run loop to do so. One thread at
// a time.

#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace platform {

/// What an undo manager tells its observers.
enum class UndoEvent {
    Checkpoint,          ///< something is about to be asked of the groups or done with them
    DidOpenUndoGroup,    ///< a group was opened
    WillCloseUndoGroup,  ///< the innermost group is about to close; not told by undo and redo
    WillUndoChange,      ///< a group is about to be undone
    DidUndoChange,       ///< a group was undone
    WillRedoChange,      ///< a group is about to be redone
    DidRedoChange,       ///< a group was redone
};

/// Whether an undo manager opens a group for each event.
enum class GroupsByEvent : bool { No, Yes };

/// The actions that undo and redo the changes of one document.
class UndoManager {
public:
    using Handler = std::function<void()>;
    using Observer = std::function<void(UndoEvent)>;

    UndoManager() = default;
    UndoManager(const UndoManager&) = delete;
    UndoManager& operator=(const UndoManager&) = delete;

    /// Calls `observer` at each event, as long as this manager lives.
    void addObserver(Observer observer);

    /// Adds an action to the innermost open group; does nothing while registration is disabled.
    ///
    /// `target` only tells for whom the action is, and is neither kept alive nor looked into; the
    /// handler must not outlive what it needs. Raises InternalInconsistencyException when no group
    /// is open and groups are not opened by event.
    ///
    /// Selector: registerUndoWithTarget:handler:
    void registerUndoWithTarget(const void* target, Handler handler);

    /// Takes back what the last group did. Does nothing when there is none.
    ///
    /// Ends the event, and closes a single open group. Raises InternalInconsistencyException when
    /// groups inside it are open, or inside undo and redo.
    ///
    /// Selector: undo
    void undo();

    /// Does again what was undone last. Does nothing when there is nothing of the kind, which any
    /// other registered action sees to. Ends the event; raises InternalInconsistencyException
    /// inside undo and redo.
    ///
    /// Selector: redo
    void redo();

    /// Selector: canUndo
    [[nodiscard]] bool canUndo() const;
    /// Selector: canRedo
    [[nodiscard]] bool canRedo();
    /// Selector: isUndoing
    [[nodiscard]] bool isUndoing() const { return activity_ == Activity::Undoing; }
    /// Selector: isRedoing
    [[nodiscard]] bool isRedoing() const { return activity_ == Activity::Redoing; }

    /// Opens a group inside the innermost open one. Where groups are opened by event and none is
    /// open, it opens the event's first.
    ///
    /// Selector: beginUndoGrouping
    void beginUndoGrouping();

    /// Closes the innermost group: it becomes part of the one around it, or can be undone if there
    /// is none and it holds actions. Raises InternalInconsistencyException when none is open.
    ///
    /// Selector: endUndoGrouping
    void endUndoGrouping();

    /// How many groups are open.
    ///
    /// Selector: groupingLevel
    [[nodiscard]] std::size_t groupingLevel() const { return open_.size(); }

    /// Whether any open group holds actions.
    [[nodiscard]] bool hasOpenActions() const;

    /// Closes the group that was opened for the event, unless others are open inside it.
    void endEvent();

    /// Selector: groupsByEvent
    [[nodiscard]] GroupsByEvent groupsByEvent() const { return groupsByEvent_; }
    /// Selector: setGroupsByEvent:
    void setGroupsByEvent(GroupsByEvent groupsByEvent) { groupsByEvent_ = groupsByEvent; }

    /// Registers nothing until `enableUndoRegistration` was called as often as this.
    ///
    /// Selector: disableUndoRegistration
    void disableUndoRegistration() { ++timesDisabled_; }

    /// Raises InternalInconsistencyException when registration is enabled.
    ///
    /// Selector: enableUndoRegistration
    void enableUndoRegistration();

    /// Selector: isUndoRegistrationEnabled
    [[nodiscard]] bool isUndoRegistrationEnabled() const { return timesDisabled_ == 0; }

    /// How many groups can be undone at most, the oldest are forgotten; 0 for any number.
    ///
    /// Selector: levelsOfUndo
    [[nodiscard]] std::size_t levelsOfUndo() const { return levelsOfUndo_; }
    /// Selector: setLevelsOfUndo:
    void setLevelsOfUndo(std::size_t levels);

    /// Forgets all actions, and how often registration was disabled. Open groups stay open.
    ///
    /// Selector: removeAllActions
    void removeAllActions();

    /// Forgets the target's actions and the groups that have no others.
    ///
    /// Selector: removeAllActionsWithTarget:
    void removeAllActionsWithTarget(const void* target);

    /// Names the innermost open group for people, such as "Typing"; an empty name takes the name
    /// away. Does nothing when no group is open or registration is disabled.
    ///
    /// Selector: setActionName:
    void setActionName(std::u16string name);

    /// What undo would take back; empty when that has no name or there is nothing.
    ///
    /// Selector: undoActionName
    [[nodiscard]] std::u16string undoActionName() const;
    /// Selector: redoActionName
    [[nodiscard]] std::u16string redoActionName() const;

    /// "Undo", with the action's name if it has one.
    ///
    /// Selector: undoMenuItemTitle
    [[nodiscard]] std::u16string undoMenuItemTitle() const;
    /// Selector: redoMenuItemTitle
    [[nodiscard]] std::u16string redoMenuItemTitle() const;

private:
    enum class Activity { Idle, Undoing, Redoing };

    struct Action {
        const void* target;
        Handler handler;
    };

    struct Group {
        std::vector<Action> actions;
        std::u16string name;
        bool isForEvent = false;
    };

    using Stack = std::deque<Group>;

    class Performance;

    void tell(UndoEvent event);
    void openGroup(bool isForEvent);
    void closeGroup();
    void perform(Stack& stack, Activity activity);
    void requireIdle(const char* what) const;
    void forgetOldest(Stack& stack) const;

    std::vector<Observer> observers_;
    Stack undoStack_;
    Stack redoStack_;
    std::vector<Group> open_;
    Activity activity_ = Activity::Idle;
    GroupsByEvent groupsByEvent_ = GroupsByEvent::Yes;
    std::size_t levelsOfUndo_ = 0;
    std::uint64_t timesDisabled_ = 0;
};

}  // namespace platform
