#include "Platform/Foundation/CollisionKeys.h"

#include <charconv>
#include <system_error>

namespace platform {
namespace {

constexpr std::string_view kMark = "__#$!@%!#__";

std::string numberedKey(std::uint64_t number, std::string_view name) {
    std::string key = std::to_string(number);
    key.reserve(key.size() + kMark.size() + name.size());
    key += kMark;
    key += name;
    return key;
}

}  // namespace

std::string CollisionKeys::keyForName(const std::string& name, const IsTaken& isTaken) {
    Numbers& numbers = numbers_[name];
    while (!numbers.freed.empty()) {
        std::string key = numberedKey(*numbers.freed.begin(), name);
        numbers.freed.erase(numbers.freed.begin());
        if (!isTaken(key)) {
            return key;
        }
    }
    while (true) {
        std::string key = numberedKey(numbers.next++, name);
        if (!isTaken(key)) {
            return key;
        }
    }
}

void CollisionKeys::keyIsFree(std::string_view key) {
    const std::size_t mark = key.find(kMark);
    if (mark == std::string_view::npos) {
        return;
    }
    std::uint64_t number = 0;
    const char* const end = key.data() + mark;
    const auto parsed = std::from_chars(key.data(), end, number);
    if (parsed.ec != std::errc() || parsed.ptr != end) {
        return;
    }
    const auto found = numbers_.find(key.substr(mark + kMark.size()));
    // Numbers from `next` on come up by themselves.
    if (found != numbers_.end() && number > 0 && number < found->second.next) {
        found->second.freed.insert(number);
    }
}

}  // namespace platform
