// A document's header as a report shows it.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Value.h"
#include "Tools/pvdoc/Report.h"

namespace pvdoc {

/// Adds what the header in `contents`, the bytes of "contents.plist", states, or why it states
/// nothing.
void reportHeader(Report& report, const platform::Data& contents);

/// Returns the value as a person reads it, containers by their size.
[[nodiscard]] std::string shown(const platform::Value& value);

}  // namespace pvdoc
