// The names that pages may write characters by, "eacute" for example.
//
// Names are those of the HTML standard; their case counts. Pure functions; any thread at once.

#pragma once

#include <cstddef>
#include <string_view>

namespace platform {

/// Returns the characters that `name` stands for when a semicolon ends it; empty when there is no
/// such name.
[[nodiscard]] std::u16string_view charactersOfHtmlName(std::string_view name);

/// Returns the same for the names that may also go without a semicolon: those of the first pages.
[[nodiscard]] std::u16string_view charactersOfOldHtmlName(std::string_view name);

/// The longest of these.
inline constexpr std::size_t kLongestOldHtmlName = 6;

}  // namespace platform
