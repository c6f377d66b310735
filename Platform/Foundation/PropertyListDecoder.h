// Builds values from the objects of a binary property list.
//
// Each object is built once and shared wherever it is named again. What is built in all is bounded
// by the size of the list: objects whose bytes overlap, which no writer makes, use that bound up
// and end in a Fault.
// One thread at a time.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "Platform/Foundation/BinaryPropertyList.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// How deep property lists may nest.
inline constexpr unsigned kMaxPropertyListDepth = 512;

/// Turns objects into values, on demand.
class PropertyListDecoder {
public:
    /// `list` is borrowed and must outlive the decoder.
    explicit PropertyListDecoder(const BinaryPropertyList& list);

    /// Returns the value of the object with number `index`, with everything that it contains.
    Result<Value> valueAt(std::uint64_t index);

    /// Counts `bytes` against what may be built; a Fault when too much was built already.
    Outcome charge(std::uint64_t bytes);

    /// Counts a dictionary's own copy of `key`: what goes beyond the length of ordinary keys.
    Outcome chargeKey(std::string_view key);

private:
    Result<Value> build(std::uint64_t index, unsigned depth);
    Result<Value> buildContainer(const BinaryItem& item, unsigned depth);
    Result<Value> scalar(const BinaryItem& item);

    const BinaryPropertyList& list_;
    std::uint64_t remaining_;
    /// Finished values; an object that is being built has no value yet.
    std::unordered_map<std::uint64_t, std::optional<Value>> values_;
};

}  // namespace platform
