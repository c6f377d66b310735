// The state of a stream.
//
// Plain values; any thread.

#pragma once

#include <cstdint>

namespace platform {

/// The states, with the platform's numbers. Opening, Reading and Writing exist only while the
/// operation of that name runs.
enum class StreamStatus : std::uint8_t {
    NotOpen = 0,
    Opening = 1,
    Open = 2,
    Reading = 3,
    Writing = 4,
    AtEnd = 5,
    Closed = 6,
    Error = 7,
};

}  // namespace platform
