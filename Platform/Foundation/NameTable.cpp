#include "Platform/Foundation/NameTable.h"

#include <algorithm>

namespace platform {

const std::size_t* NameTable::find(std::string_view name) const {
    const auto place = numbers_.find(name);
    return place != numbers_.end() ? &place->second : nullptr;
}

std::pair<std::size_t, bool> NameTable::add(std::string name, std::size_t number) {
    const auto [place, isNew] = numbers_.try_emplace(std::move(name), number);
    return {place->second, isNew};
}

std::size_t NameTable::largestBucket() const {
    std::size_t largest = 0;
    for (std::size_t i = 0; i < numbers_.bucket_count(); ++i) {
        largest = std::max(largest, numbers_.bucket_size(i));
    }
    return largest;
}

}  // namespace platform
