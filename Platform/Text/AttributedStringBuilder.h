// Puts an attributed string together from pieces of others, in one pass.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "Platform/Foundation/Range.h"
#include "Platform/Text/AttributedString.h"

namespace platform {

/// Appends pieces and hands out the whole. Pieces of one string, taken in the order of its text,
/// cost what is copied and one walk over its runs; a string that is the only piece is not copied.
class AttributedStringBuilder {
public:
    /// Makes room for a text of `length` units, so that it is not moved while it grows.
    void reserve(std::uint64_t length) { string_.reserve(length); }

    /// Appends the characters in `range` with their attributes.
    ///
    /// Raises RangeException when the range does not lie in `source`.
    void append(const AttributedString& source, Range range);

    /// The string, once; the builder is empty then.
    [[nodiscard]] AttributedString finish();

private:
    void copy(Range range);

    /// The string whose pieces were appended last; the first one may not be copied yet.
    AttributedString source_;
    bool isWhole_ = false;
    /// The run of the source that its next piece is looked for from, and where it begins.
    std::size_t run_ = 0;
    std::uint64_t runStart_ = 0;

    std::u16string string_;
    std::vector<AttributeRun> runs_;
};

}  // namespace platform
