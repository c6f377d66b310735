#include "Platform/Foundation/NotificationCenter.h"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace platform {

NotificationCenter& NotificationCenter::defaultCenter() {
    // Never destroyed: objects tell of themselves until the very end.
    static auto& center = *new NotificationCenter;
    return center;
}

NotificationCenter::Token NotificationCenter::addObserverForName(std::optional<std::string> forName,
                                                                 const void* object,
                                                                 Observer usingBlock) {
    const std::lock_guard lock(mutex_);
    const Token token{++lastToken_};
    entries_.push_back(
        std::make_shared<Entry>(Entry{token, std::move(forName), object, std::move(usingBlock)}));
    return token;
}

void NotificationCenter::removeObserver(Token observer) {
    const std::lock_guard lock(mutex_);
    std::erase_if(entries_, [&](const auto& entry) {
        // A post that is going on may still hold it.
        entry->isRemoved = entry->isRemoved || entry->token == observer;
        return entry->isRemoved;
    });
}

void NotificationCenter::postNotificationName(std::string name, const void* object,
                                              Dictionary userInfo) {
    if (name.empty()) {
        raise(InvalidArgumentException("a notification needs a name"));
    }
    const Notification notification{std::move(name), object, std::move(userInfo)};
    for (const auto& entry : entriesFor(notification)) {
        if (isThere(*entry)) {
            entry->observer(notification);
        }
    }
}

std::vector<std::shared_ptr<NotificationCenter::Entry>> NotificationCenter::entriesFor(
    const Notification& notification) {
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<Entry>> found;
    std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(found),
                 [&](const auto& entry) {
                     return (!entry->name || entry->name == notification.name) &&
                            (entry->object == nullptr || entry->object == notification.object);
                 });
    return found;
}

bool NotificationCenter::isThere(const Entry& entry) {
    const std::lock_guard lock(mutex_);
    return !entry.isRemoved;
}

}  // namespace platform
