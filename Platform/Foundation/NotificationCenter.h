// Tells whoever wants to know that something has happened to an object.
//
// Posting calls the observers on the posting thread, in the order in which they were added, and
// returns when all have been called; what an observer throws comes out of it, and ends it. While a
// notification is posted, observers may be added, which it does not reach, and removed, which it
// does not reach either. Any thread at once.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Value.h"

namespace platform {

/// What has happened, to whom, and more about it.
struct Notification {
    std::string name;
    /// Only tells which object it is; null for none.
    const void* object = nullptr;
    Dictionary userInfo;
};

/// The observers of one program.
class NotificationCenter {
public:
    using Observer = std::function<void(const Notification&)>;

    /// Names an observer. It stays in the center until it is removed.
    enum class Token : std::uint64_t {};

    /// The center that all share.
    ///
    /// Selector: defaultCenter
    [[nodiscard]] static NotificationCenter& defaultCenter();

    /// Lets `usingBlock` know of notifications: of those called `forName`, or of all when it is
    /// absent; and of those of `object`, or of all when it is null.
    ///
    /// Selector: addObserverForName:object:usingBlock:
    Token addObserverForName(std::optional<std::string> forName, const void* object,
                             Observer usingBlock);

    /// Removes an observer; one that is not there is no error.
    ///
    /// Selector: removeObserver:
    void removeObserver(Token observer);

    /// Raises InvalidArgumentException when the name is empty.
    ///
    /// Selector: postNotificationName:object:userInfo:
    void postNotificationName(std::string name, const void* object, Dictionary userInfo = {});

private:
    struct Entry {
        Token token;
        std::optional<std::string> name;
        const void* object;
        Observer observer;
        bool isRemoved = false;
    };

    [[nodiscard]] std::vector<std::shared_ptr<Entry>> entriesFor(const Notification& notification);
    [[nodiscard]] bool isThere(const Entry& entry);

    std::mutex mutex_;
    std::vector<std::shared_ptr<Entry>> entries_;
    std::uint64_t lastToken_ = 0;
};

}  // namespace platform
