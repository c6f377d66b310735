// Makes up keys for children of one folder that want the same name.
//
// One thread at a time.

#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

#include "Platform/Foundation/NameHash.h"

namespace platform {

/// Numbers the names that are wanted more than once: `1__#$!@%!#__name`, then 2 and so on.
///
/// It remembers where it stopped counting, so that a key costs no search however many there are.
class CollisionKeys {
public:
    using IsTaken = std::function<bool(const std::string& key)>;

    /// Returns the numbered key of `name` with the lowest number that is not taken.
    [[nodiscard]] std::string keyForName(const std::string& name, const IsTaken& isTaken);

    /// Lets a key that is free again be given out again; other keys are passed over.
    void keyIsFree(std::string_view key);

private:
    struct Numbers {
        // All below are taken, but for those that were freed.
        std::uint64_t next = 1;
        std::set<std::uint64_t> freed;
    };

    std::unordered_map<std::string, Numbers, NameHash, std::equal_to<>> numbers_;
};

}  // namespace platform
