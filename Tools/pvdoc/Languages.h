// pvdoc languages: which languages a text is written in, and where.

#pragma once

#include <cstdint>
#include <string>

#include "Platform/Foundation/Result.h"
#include "Sources/TextAnalysis/TextAnalyzeUtils.h"
#include "Tools/pvdoc/Listing.h"
#include "Tools/pvdoc/Report.h"

namespace pvdoc {

/// Lists the stretches of one language each; how many there are, 0 when no language can be told. A
/// Fault when the file has no text.
platform::Result<std::uint64_t> listLanguages(const std::string& file,
                                              const parlavox::AllowedLanguages& allowed,
                                              ListingForm form, const Output& output);

/// Adds the first of those stretches to a report.
void reportLanguages(const std::u16string& text, Report& report);

}  // namespace pvdoc
