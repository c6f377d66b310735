// The class behind CFUUIDRef, and identifiers as plain bytes.
//
// Identifiers are unique by value: a table of the process knows them all. Making one and giving the
// last ownership of one up take the table's lock, nothing else does. Immutable; any thread.

#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Platform/CoreFoundation/CFUUID.h"
#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {

/// An identifier's bytes in the order in which they are written.
using UUIDBytes = std::array<std::uint8_t, 16>;

/// Reads an identifier as leniently as CFUUIDCreateFromString does.
[[nodiscard]] UUIDBytes uuidFromText(std::u16string_view text) noexcept;

class UUID final : public Object {
public:
    static constexpr TypeID kType = TypeID::UUID;

    /// The identifier of these bytes, owned by the caller. May throw std::bad_alloc.
    [[nodiscard]] static const UUID* of(const UUIDBytes& bytes);

    [[nodiscard]] const UUIDBytes& bytes() const noexcept { return bytes_; }
    [[nodiscard]] CFHashCode hash() const noexcept override;

private:
    explicit UUID(const UUIDBytes& bytes) : Object(kType), bytes_(bytes) {}

    void lastRelease() const noexcept override;

    UUIDBytes bytes_;
};

inline CFUUIDRef refOf(const UUID* uuid) noexcept {
    return reinterpret_cast<CFUUIDRef>(uuid);
}

}  // namespace platform::cf
