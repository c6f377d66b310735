// The tables of the language tagger, as C++.
//
// Pure functions; any thread.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Packaging/generate/LanguageSource.h"

namespace packaging {

/// Letters in a row, '_' for the ends of a word, the commonest first.
using Grams = std::vector<std::u16string>;

/// Returns the n-grams of a file of libexttextcat's that are made of letters, in small letters,
/// none twice. A line is an n-gram and, in some files, a tab and its count.
[[nodiscard]] Grams gramsFromModel(std::string_view model);

/// Returns the source of the tables that Platform/Text/LanguageModel.h declares. `grams` has, for
/// each language in their order, the n-grams of its models.
[[nodiscard]] std::string languageTables(const std::vector<LanguageRecord>& languages,
                                         const std::vector<std::vector<Grams>>& grams);

}  // namespace packaging
