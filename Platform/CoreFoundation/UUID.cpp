#include "Platform/CoreFoundation/UUID.h"

#include <bit>
#include <map>
#include <mutex>

namespace platform::cf {
namespace {

/// All identifiers that somebody owns. Never destroyed, as constant ones never go.
struct Table {
    std::mutex mutex;
    std::map<UUIDBytes, const UUID*> uuids;

    static Table& shared() {
        static auto& table = *new Table;
        return table;
    }
};

int digitOf(char16_t unit) noexcept {
    if (unit >= u'0' && unit <= u'9') {
        return unit - u'0';
    }
    if (unit >= u'A' && unit <= u'F') {
        return unit - u'A' + 10;
    }
    if (unit >= u'a' && unit <= u'f') {
        return unit - u'a' + 10;
    }
    return -1;
}

}  // namespace

UUIDBytes uuidFromText(std::u16string_view text) noexcept {
    UUIDBytes bytes{};
    while (!text.empty() && digitOf(text[0]) < 0) {
        text.remove_prefix(1);
    }
    for (std::size_t digit = 0; digit < 32 && !text.empty(); ++digit) {
        const bool groupStarts = digit == 8 || digit == 12 || digit == 16 || digit == 20;
        if (groupStarts && text[0] == u'-') {
            text.remove_prefix(1);
        }
        const int value = text.empty() ? -1 : digitOf(text[0]);
        if (value > 0) {
            bytes[digit / 2] |= static_cast<std::uint8_t>(digit % 2 == 0 ? value << 4 : value);
        }
        text.remove_prefix(text.empty() ? 0 : 1);
    }
    return bytes;
}

const UUID* UUID::of(const UUIDBytes& bytes) {
    Table& table = Table::shared();
    const std::lock_guard lock(table.mutex);
    const UUID*& place = table.uuids[bytes];
    if (place != nullptr) {
        place->retain();
        return place;
    }
    try {
        place = new UUID(bytes);
    } catch (...) {
        table.uuids.erase(bytes);
        throw;
    }
    return place;
}

CFHashCode UUID::hash() const noexcept {
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(bytes_);
    return halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15u);
}

void UUID::lastRelease() const noexcept {
    Table& table = Table::shared();
    const std::lock_guard lock(table.mutex);
    // Whoever asked for the same bytes meanwhile has become an owner, or made it constant.
    if (!isEternal() && dropOwner()) {
        table.uuids.erase(bytes_);
        delete this;
    }
}

}  // namespace platform::cf
