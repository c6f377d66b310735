// Builds documents of the own format: headers, and packages of header and text.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Value.h"
#include "Tools/samples/ZipBuilder.h"

namespace samples {

/// Returns a "contents.plist" that states `compatibilityVersion`; null leaves it out.
[[nodiscard]] platform::Data contentsPlist(platform::Value compatibilityVersion = 2);

/// Returns a package with that header and the archive `text` as its text.
[[nodiscard]] platform::Data package(const platform::Data& text,
                                     platform::Value compatibilityVersion = 2,
                                     Packing packing = Packing::Deflated);

}  // namespace samples
