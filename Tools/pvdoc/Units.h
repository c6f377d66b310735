// pvdoc units: the paragraphs, sentences or words of a text.

#pragma once

#include <string>

#include "Platform/Foundation/Result.h"
#include "Platform/Text/TextUnits.h"
#include "Tools/pvdoc/Listing.h"

namespace pvdoc {

/// Lists the units of the text of `file`; how many there are. A Fault when it has no text.
platform::Result<std::uint64_t> listUnits(const std::string& file, platform::TextUnitKind kind,
                                          ListingForm form, const Output& output);

}  // namespace pvdoc
