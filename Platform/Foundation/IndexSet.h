// A set of indexes into an array, kept in ascending order.
//
// Indexes go from 0 to kNotFound - 1. Immutable; any thread at once.

#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "Platform/Foundation/Range.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// Indexes, each once. A set of a range costs as much as one of a single index.
class IndexSet final : public Object {
public:
    IndexSet() = default;

    /// Makes a set of single indexes, in any order. Raises InvalidArgumentException when one is
    /// none.
    IndexSet(std::initializer_list<std::uint64_t> indexes);

    /// Raises InvalidArgumentException when one is none.
    explicit IndexSet(const std::vector<std::uint64_t>& indexes);

    /// Raises InvalidArgumentException when the range goes beyond the indexes.
    ///
    /// Selector: indexSetWithIndexesInRange:
    [[nodiscard]] static IndexSet indexSetWithIndexesInRange(Range range);

    /// Selector: count
    [[nodiscard]] std::uint64_t count() const;

    [[nodiscard]] bool isEmpty() const { return ranges_.empty(); }

    /// kNotFound for an empty set.
    ///
    /// Selector: firstIndex
    [[nodiscard]] std::uint64_t firstIndex() const;

    /// kNotFound for an empty set.
    ///
    /// Selector: lastIndex
    [[nodiscard]] std::uint64_t lastIndex() const;

    /// Selector: containsIndex:
    [[nodiscard]] bool containsIndex(std::uint64_t index) const;

    /// The indexes as ranges that neither touch nor overlap, in ascending order.
    [[nodiscard]] const std::vector<Range>& ranges() const { return ranges_; }

    friend bool operator==(const IndexSet& one, const IndexSet& other) {
        return one.ranges_ == other.ranges_;
    }

private:
    void add(std::vector<std::uint64_t> indexes);

    std::vector<Range> ranges_;
};

}  // namespace platform
