// Makes text ready to be written where tags have no place.
//
// Stateless; any thread at once.

#pragma once

#include "Platform/Text/AttributedString.h"

namespace parlavox {

/// A class of class-level operations; there are no instances.
class RTFExporter {
public:
    RTFExporter() = delete;

    /// Returns the text without its tags, the runs that carry an attachment; all else keeps its
    /// attributes.
    ///
    /// Selector: stringByRemovingTags:
    [[nodiscard]] static platform::AttributedString stringByRemovingTags(
        const platform::AttributedString& string);
};

}  // namespace parlavox
