// Moments as text, in the form that property lists use: "2001-01-01T00:00:00Z", always UTC.
//
// Pure functions; any thread at once.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Value.h"

namespace platform {

/// Returns the moment that `text` states as YYYY-MM-DDTHH:MM:SSZ, or nothing when it is not of that
/// form. A sign may stand before the year; fields out of range are refused.
[[nodiscard]] std::optional<Date> dateFromText(std::string_view text);

/// Returns `date` in that form, the fraction of a second dropped. Moments more than 30,000 years
/// away are moved there.
[[nodiscard]] std::string textFromDate(Date date);

}  // namespace platform
