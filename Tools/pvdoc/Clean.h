// pvdoc clean: a text without NULs and without the hyphens of line ends.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Result.h"
#include "Tools/pvdoc/Listing.h"

namespace pvdoc {

/// Something that clean-up took out of a text.
struct Removal {
    enum class Kind { Nul, Hyphen };

    std::uint64_t location = 0;  ///< in UTF-16 units of the text before
    Kind kind = Kind::Nul;
};

/// What is in `before` and not in `after`, which is the same text cleaned.
[[nodiscard]] std::vector<Removal> removalsBetween(std::u16string_view before,
                                                   std::u16string_view after);

enum class CleanForm : bool { Text, Changes };

/// Writes the cleaned text of `file` in UTF-8, or a line for each change: the place, and the word
/// before and after. How many changes there are. A Fault when the file has no text.
platform::Result<std::uint64_t> clean(const std::string& file, CleanForm form,
                                      const Output& output);

}  // namespace pvdoc
