// The current time.
//
// Any thread at once.

#pragma once

#include "Platform/Foundation/Value.h"

namespace platform {

/// Returns this moment.
[[nodiscard]] Date currentDate();

}  // namespace platform
