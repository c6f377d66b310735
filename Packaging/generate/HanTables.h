// The table that tells the forms of Han characters apart, as C++.

#pragma once

#include <string>

namespace packaging {

/// Returns the source of the table that Platform/Text/HanForms.h declares.
///
/// Which forms are simplified and which are traditional, ICU's rules know that turn one into the
/// other; they were made of the Unicode Consortium's data on variants (Unicode licence).
[[nodiscard]] std::string hanTables();

}  // namespace packaging
