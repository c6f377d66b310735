// The current time.
//
// Any thread at once.

#pragma once

#include "Platform/Foundation/Value.h"

namespace platform {

/// Returns this moment.
[[nodiscard]] Date currentDate();

/// While it lives, this moment is what `clock` says, on the thread that made it.
class ClockScope {
public:
    explicit ClockScope(Date (*clock)());
    ~ClockScope();
    ClockScope(const ClockScope&) = delete;
    ClockScope& operator=(const ClockScope&) = delete;

private:
    Date (*outer_)();
};

}  // namespace platform
