#include "Platform/Text/HtmlKinds.h"

#include <array>
#include <cstddef>
#include <iterator>

namespace platform {
namespace {

constexpr std::size_t kSlots = 128;

/// A number below kSlots, another one for each of the names.
constexpr std::size_t slotOf(std::string_view name) {
    const auto byteAt = [&](std::size_t i) {
        return static_cast<std::size_t>(static_cast<unsigned char>(name[i]));
    };
    return (byteAt(0) + byteAt(name.size() - 1) * 5 + byteAt(name.size() / 2) * 2 +
            name.size() * 11) %
           kSlots;
}

constexpr std::uint8_t kFree = 0xFF;
constexpr auto kPlaces = [] {
    std::array<std::uint8_t, kSlots> places{};
    places.fill(kFree);
    for (std::size_t i = 0; i < std::size(kHtmlKinds); ++i) {
        places[slotOf(kHtmlKinds[i].name())] = static_cast<std::uint8_t>(i);
    }
    return places;
}();

constexpr bool haveSlotsOfTheirOwn() {
    for (std::size_t i = 0; i < std::size(kHtmlKinds); ++i) {
        if (kPlaces[slotOf(kHtmlKinds[i].name())] != i) {
            return false;
        }
    }
    return true;
}
static_assert(haveSlotsOfTheirOwn());

}  // namespace

const HtmlKind* htmlKindNamed(std::string_view name) {
    if (name.empty()) {
        return nullptr;
    }
    const std::uint8_t place = kPlaces[slotOf(name)];
    return place != kFree && kHtmlKinds[place].name() == name ? &kHtmlKinds[place] : nullptr;
}

}  // namespace platform
