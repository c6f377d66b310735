// What has become of an archive's objects: decoded, damaged, being decoded, or nothing yet.
//
// Objects go by the numbers of their entries in the property list. One that was never begun costs
// four bytes. One thread at a time.

#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// The objects of one archive.
class DecodedObjects {
public:
    enum class State : std::uint8_t { Forgotten, Open, Decoded, Damaged };

    /// An object that was begun.
    struct Entry {
        Value value;  ///< once it is decoded
        /// How many levels of objects and containers are below a decoded object.
        std::uint32_t height = 0;
        State state = State::Forgotten;
    };

    /// `entries` is how many entries the property list has, all numbers are below it; `objects` is
    /// how many of them can be objects. Each entry costs four bytes until its object is begun.
    DecodedObjects(std::uint64_t entries, std::uint64_t objects) : places_(entries) {
        entries_.reserve(std::min(entries, objects));
    }

    /// Returns what is known of an object; null when nothing is. Valid until another is begun. Any
    /// number will do.
    [[nodiscard]] const Entry* find(std::uint64_t number) const {
        const std::uint32_t place = number < places_.size() ? places_[number] : 0;
        const bool isKnown = place != 0 && entries_[place - 1].state != State::Forgotten;
        return isKnown ? &entries_[place - 1] : nullptr;
    }

    /// Notes that the object is being decoded.
    void begin(std::uint64_t number);

    /// Each ends the decoding of an object that was begun.
    void finish(std::uint64_t number, Value value, unsigned height);
    void damage(std::uint64_t number, Fault fault);
    void forget(std::uint64_t number);

    /// The damage of an object that is damaged.
    [[nodiscard]] const Fault& faultOf(std::uint64_t number) const { return faults_.at(number); }

private:
    [[nodiscard]] Entry& entryOf(std::uint64_t number) { return entries_[places_[number] - 1]; }

    /// One more than the place of the object's entry; 0 when it has none.
    std::vector<std::uint32_t> places_;
    std::vector<Entry> entries_;
    std::unordered_map<std::uint64_t, Fault> faults_;
};

}  // namespace platform
