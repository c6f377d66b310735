// The floor of PDF import: the library alone, which reads the text of all pages and throws it away.

#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// The number of bytes in the text of all pages of a PDF file; 0 when it cannot be opened.
[[nodiscard]] std::size_t popplerTextSize(const std::string& bytes);

}  // namespace bench
