#include "Platform/Foundation/UndoManager.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

std::u16string titleWith(const std::u16string& verb, const std::u16string& name) {
    return name.empty() ? verb : verb + u" " + name;
}

}  // namespace

/// While it lives, what is registered is gathered for the other direction. An action that raises
/// ends it like any other: the manager can be used afterwards.
class UndoManager::Performance {
public:
    Performance(UndoManager& manager, Activity activity)
        : manager_(manager), openOutside_(std::exchange(manager.open_, {})) {
        manager_.activity_ = activity;
    }
    ~Performance() {
        manager_.activity_ = Activity::Idle;
        manager_.open_ = std::move(openOutside_);
    }
    Performance(const Performance&) = delete;
    Performance& operator=(const Performance&) = delete;

private:
    UndoManager& manager_;
    std::vector<Group> openOutside_;
};

void UndoManager::addObserver(Observer observer) {
    observers_.push_back(std::move(observer));
}

void UndoManager::tell(UndoEvent event) {
    // By number: an observer may add others.
    for (std::size_t i = 0; i < observers_.size(); ++i) {
        const Observer observer = observers_[i];
        observer(event);
    }
}

void UndoManager::registerUndoWithTarget(const void* target, Handler handler) {
    if (!isUndoRegistrationEnabled()) {
        return;
    }
    if (open_.empty()) {
        if (groupsByEvent_ == GroupsByEvent::No) {
            raise(InternalInconsistencyException("an undo action without an open group"));
        }
        openGroup(true);
    }
    if (activity_ == Activity::Idle) {
        redoStack_.clear();
    }
    open_.back().actions.push_back({target, std::move(handler)});
}

void UndoManager::undo() {
    requireIdle("undo");
    endEvent();
    if (open_.size() == 1) {
        endUndoGrouping();
    }
    if (!open_.empty()) {
        raise(InternalInconsistencyException("undo with open groups inside each other"));
    }
    tell(UndoEvent::Checkpoint);
    if (undoStack_.empty()) {
        return;
    }
    tell(UndoEvent::WillUndoChange);
    perform(undoStack_, Activity::Undoing);
    tell(UndoEvent::DidUndoChange);
}

void UndoManager::redo() {
    requireIdle("redo");
    endEvent();
    tell(UndoEvent::Checkpoint);
    if (redoStack_.empty()) {
        return;
    }
    tell(UndoEvent::WillRedoChange);
    perform(redoStack_, Activity::Redoing);
    tell(UndoEvent::DidRedoChange);
}

void UndoManager::perform(Stack& stack, Activity activity) {
    const Group group = std::move(stack.back());
    stack.pop_back();
    const Performance performance(*this, activity);
    openGroup(false);
    for (auto action = group.actions.rbegin(); action != group.actions.rend(); ++action) {
        action->handler();
    }
    while (open_.size() > 1) {
        closeGroup();
    }
    // An action may have closed even the first one; what it registered then is one of its own.
    if (!open_.empty()) {
        open_.front().name = group.name;
        closeGroup();
    }
}

bool UndoManager::canUndo() const {
    return !undoStack_.empty() || hasOpenActions();
}

bool UndoManager::canRedo() {
    tell(UndoEvent::Checkpoint);
    return !redoStack_.empty();
}

bool UndoManager::hasOpenActions() const {
    return std::any_of(open_.begin(), open_.end(),
                       [](const Group& group) { return !group.actions.empty(); });
}

void UndoManager::beginUndoGrouping() {
    tell(UndoEvent::Checkpoint);
    if (open_.empty() && groupsByEvent_ == GroupsByEvent::Yes) {
        openGroup(true);
    }
    openGroup(false);
}

void UndoManager::endUndoGrouping() {
    if (open_.empty()) {
        raise(InternalInconsistencyException("the end of an undo group without its beginning"));
    }
    tell(UndoEvent::Checkpoint);
    if (activity_ == Activity::Idle) {
        tell(UndoEvent::WillCloseUndoGroup);
    }
    closeGroup();
}

void UndoManager::endEvent() {
    if (activity_ == Activity::Idle && open_.size() == 1 && open_.front().isForEvent) {
        endUndoGrouping();
    }
}

void UndoManager::openGroup(bool isForEvent) {
    open_.push_back({{}, {}, isForEvent});
    tell(UndoEvent::DidOpenUndoGroup);
}

void UndoManager::closeGroup() {
    Group group = std::move(open_.back());
    open_.pop_back();
    if (!open_.empty()) {
        Group& outer = open_.back();
        std::move(group.actions.begin(), group.actions.end(), std::back_inserter(outer.actions));
        // A name given to the whole says more than that of a part.
        if (outer.name.empty()) {
            outer.name = std::move(group.name);
        }
    } else if (!group.actions.empty()) {
        Stack& stack = isUndoing() ? redoStack_ : undoStack_;
        stack.push_back(std::move(group));
        forgetOldest(stack);
    }
}

void UndoManager::enableUndoRegistration() {
    if (timesDisabled_ == 0) {
        raise(InternalInconsistencyException("undo registration enabled, which was not disabled"));
    }
    --timesDisabled_;
}

void UndoManager::setLevelsOfUndo(std::size_t levels) {
    levelsOfUndo_ = levels;
    forgetOldest(undoStack_);
    forgetOldest(redoStack_);
}

void UndoManager::forgetOldest(Stack& stack) const {
    while (levelsOfUndo_ > 0 && stack.size() > levelsOfUndo_) {
        stack.pop_front();
    }
}

void UndoManager::removeAllActions() {
    undoStack_.clear();
    redoStack_.clear();
    for (Group& group : open_) {
        group.actions.clear();
    }
    timesDisabled_ = 0;
}

void UndoManager::removeAllActionsWithTarget(const void* target) {
    const auto forget = [target](Group& group) {
        std::erase_if(group.actions, [=](const Action& action) { return action.target == target; });
    };
    std::for_each(open_.begin(), open_.end(), forget);
    for (Stack* const stack : {&undoStack_, &redoStack_}) {
        std::for_each(stack->begin(), stack->end(), forget);
        std::erase_if(*stack, [](const Group& group) { return group.actions.empty(); });
    }
}

void UndoManager::setActionName(std::u16string name) {
    if (!open_.empty() && isUndoRegistrationEnabled()) {
        open_.back().name = std::move(name);
    }
}

std::u16string UndoManager::undoActionName() const {
    if (!hasOpenActions()) {
        return undoStack_.empty() ? std::u16string() : undoStack_.back().name;
    }
    const auto named = std::find_if(open_.begin(), open_.end(),
                                    [](const Group& group) { return !group.name.empty(); });
    return named != open_.end() ? named->name : std::u16string();
}

std::u16string UndoManager::redoActionName() const {
    return redoStack_.empty() ? std::u16string() : redoStack_.back().name;
}

std::u16string UndoManager::undoMenuItemTitle() const {
    return titleWith(u"Undo", undoActionName());
}

std::u16string UndoManager::redoMenuItemTitle() const {
    return titleWith(u"Redo", redoActionName());
}

void UndoManager::requireIdle(const char* what) const {
    if (activity_ != Activity::Idle) {
        raise(InternalInconsistencyException(std::string(what) + " inside undo or redo"));
    }
}

}  // namespace platform
