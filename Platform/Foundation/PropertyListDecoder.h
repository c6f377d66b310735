// Builds values from the objects of a binary property list.
//
// Each object is built once and shared wherever it is named again. What is built in all is bounded
// by the size of the list, and how deep it nests by a fixed number of levels; a list that exceeds
// either ends in a Fault.
// One thread at a time; it needs some 256 KiB of stack.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "Platform/Foundation/BinaryPropertyList.h"
#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// How deep property lists may nest.
inline constexpr unsigned kMaxPropertyListDepth = 512;

/// Turns objects into values, on demand.
class PropertyListDecoder {
public:
    /// `list` and `budget` are borrowed and must outlive the decoder.
    PropertyListDecoder(const BinaryPropertyList& list, BuildBudget& budget);

    /// Returns the value of the object with number `index`, with everything that it contains.
    Result<Value> valueAt(std::uint64_t index);

    /// Returns the value of an object that is no container, made anew.
    Result<Value> scalar(const BinaryItem& item);

    /// Returns a dictionary key: the string with number `index` as UTF-8, a copy of its own.
    Result<std::string> keyAt(std::uint64_t index);

private:
    /// A value and the number of levels below it.
    struct Built {
        Value value;
        unsigned height = 0;
    };

    Result<Built> build(std::uint64_t index, unsigned depth);
    Result<Built> buildArray(const BinaryItem& item, unsigned depth);
    Result<Built> buildDictionary(const BinaryItem& item, unsigned depth);

    const BinaryPropertyList& list_;
    BuildBudget& budget_;
    /// Finished values; an object that is being built has no value yet.
    std::unordered_map<std::uint64_t, std::optional<Built>> built_;
};

}  // namespace platform
