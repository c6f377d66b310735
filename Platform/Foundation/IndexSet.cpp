#include "Platform/Foundation/IndexSet.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

[[noreturn]] void raiseNoIndex(std::uint64_t index) {
    raise(InvalidArgumentException(std::to_string(index) + " is beyond the largest index"));
}

}  // namespace

IndexSet::IndexSet(std::initializer_list<std::uint64_t> indexes) {
    add(indexes);
}

IndexSet::IndexSet(const std::vector<std::uint64_t>& indexes) {
    add(indexes);
}

void IndexSet::add(std::vector<std::uint64_t> indexes) {
    std::sort(indexes.begin(), indexes.end());
    if (!indexes.empty() && indexes.back() >= kNotFound) {
        raiseNoIndex(indexes.back());
    }
    for (const std::uint64_t index : indexes) {
        if (ranges_.empty() || index > ranges_.back().end()) {
            ranges_.push_back({index, 1});
        } else if (index == ranges_.back().end()) {
            ++ranges_.back().length;
        }
    }
}

IndexSet IndexSet::indexSetWithIndexesInRange(Range range) {
    if (range.location >= kNotFound || range.length > kNotFound - range.location) {
        raiseNoIndex(std::max(range.location, range.length));
    }
    IndexSet set;
    if (range.length > 0) {
        set.ranges_.push_back(range);
    }
    return set;
}

std::uint64_t IndexSet::count() const {
    return std::accumulate(
        ranges_.begin(), ranges_.end(), std::uint64_t{0},
        [](std::uint64_t count, const Range& range) { return count + range.length; });
}

std::uint64_t IndexSet::firstIndex() const {
    return isEmpty() ? kNotFound : ranges_.front().location;
}

std::uint64_t IndexSet::lastIndex() const {
    return isEmpty() ? kNotFound : ranges_.back().end() - 1;
}

bool IndexSet::containsIndex(std::uint64_t index) const {
    const auto behind = std::upper_bound(
        ranges_.begin(), ranges_.end(), index,
        [](std::uint64_t wanted, const Range& range) { return wanted < range.location; });
    return behind != ranges_.begin() && index < std::prev(behind)->end();
}

}  // namespace platform
