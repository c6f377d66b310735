// What a reader asks of a document of the own format before it reads on.
//
// Pure functions; any thread at once.

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace parlavox {

/// Whether documents of the type are packages of the own format, also those of another application.
[[nodiscard]] bool isPackageType(std::string_view type);

/// Returns the value under the header's key in `contents`, the bytes of "contents.plist"; null when
/// there is none. A Fault when the bytes are no property list.
platform::Result<platform::Value> packageHeader(const platform::Data& contents);

/// Returns the compatibility version that a header states; nothing when it states none.
[[nodiscard]] std::optional<std::int64_t> compatibilityVersion(const platform::Value& header);

}  // namespace parlavox
