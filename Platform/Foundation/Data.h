// Immutable, shared bytes.
//
// A Data is cheap to pass and to cut: copies and parts share one block. Bytes that are absent are
// an empty std::optional<Data>, which is not the same as a Data of size 0.
// Immutable; any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Buffer.h"
#include "Platform/Foundation/Range.h"

namespace platform {

/// A value that holds bytes; every part of it keeps the whole block alive.
class Data {
public:
    /// Makes a Data without bytes.
    Data() = default;

    /// Returns a copy of `bytes`.
    [[nodiscard]] static Data copyOf(std::span<const std::byte> bytes);
    [[nodiscard]] static Data copyOf(std::string_view bytes);

    /// Takes the bytes over without copying them.
    [[nodiscard]] static Data adopt(Buffer bytes);
    [[nodiscard]] static Data adopt(std::vector<std::byte> bytes);
    [[nodiscard]] static Data adopt(std::string bytes);

    [[nodiscard]] const std::byte* bytes() const { return bytes_.data(); }
    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] bool empty() const { return bytes_.empty(); }
    [[nodiscard]] std::span<const std::byte> span() const { return bytes_; }

    /// The bytes seen as characters; valid as long as this value or a copy of it lives.
    [[nodiscard]] std::string_view view() const {
        return {reinterpret_cast<const char*>(bytes_.data()), bytes_.size()};
    }

    /// Returns the bytes in `range`, which share this value's block.
    ///
    /// Raises RangeException when the range does not lie within the bytes.
    ///
    /// Selector: subdataWithRange:
    [[nodiscard]] Data subdataWithRange(Range range) const;

    /// Compares the bytes.
    friend bool operator==(const Data& first, const Data& second) {
        return first.view() == second.view();
    }

private:
    Data(std::shared_ptr<const void> owner, std::span<const std::byte> bytes)
        : owner_(std::move(owner)), bytes_(bytes) {}

    std::shared_ptr<const void> owner_;
    std::span<const std::byte> bytes_;
};

}  // namespace platform
