#include "Platform/Foundation/DecodedObjects.h"

namespace platform {

void DecodedObjects::begin(std::uint64_t number) {
    if (places_[number] == 0) {
        entries_.emplace_back();
        places_[number] = static_cast<std::uint32_t>(entries_.size());
    }
    entryOf(number).state = State::Open;
}

void DecodedObjects::finish(std::uint64_t number, Value value, unsigned height) {
    Entry& entry = entryOf(number);
    entry.value = std::move(value);
    entry.height = height;
    entry.state = State::Decoded;
}

void DecodedObjects::damage(std::uint64_t number, Fault fault) {
    entryOf(number).state = State::Damaged;
    faults_.emplace(number, std::move(fault));
}

void DecodedObjects::forget(std::uint64_t number) {
    entryOf(number).state = State::Forgotten;
}

}  // namespace platform
