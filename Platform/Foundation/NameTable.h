// Finds numbers by names that strangers chose.
//
// The names are hashed with the process's secret, so that a list of names that collide cannot be
// prepared. One thread at a time; any may look up while none adds.

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "Platform/Foundation/NameHash.h"

namespace platform {

/// Names (any bytes) with a number each.
class NameTable {
public:
    /// The number of `name`, null when it has none. Copies nothing; valid as long as the table.
    [[nodiscard]] const std::size_t* find(std::string_view name) const;

    /// Gives `name` the number unless it has one. Returns the one it has, and whether it is new.
    std::pair<std::size_t, bool> add(std::string name, std::size_t number);

    /// The most names that one bucket holds. Looks at all buckets.
    [[nodiscard]] std::size_t largestBucket() const;

private:
    std::unordered_map<std::string, std::size_t, NameHash, std::equal_to<>> numbers_;
};

}  // namespace platform
