// What becomes of the hyphens that the ends of a PDF's lines left in words.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Tools/pvdoc/Report.h"

namespace pvdoc {

/// Reports which hyphens of the pages' text go and which stay, and why. `pdf` are the bytes of a
/// PDF file; of one that can't be read nothing is reported.
void reportHyphens(const platform::Data& pdf, Report& report);

}  // namespace pvdoc
