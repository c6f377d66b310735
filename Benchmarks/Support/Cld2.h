// CLD2 alone, as programs ask it; the yardstick of the language tagger.

#pragma once

#include <string>
#include <string_view>

namespace bench {

/// Returns CLD2's first answer as its code; "un" when it has none.
///
/// Must be called once before the language tagger, whose module brings larger tables under the same
/// names: which of them the library takes, is settled when it is loaded.
[[nodiscard]] std::string cld2Language(std::string_view utf8);

}  // namespace bench
