// Reads a document's archived text.
//
// One thread at a time.

#pragma once

#include <memory>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/Value.h"

namespace parlavox {

/// A keyed unarchiver that knows attributed text and carries values that objects may look up while
/// they are decoded.
class TextUnarchiver final : public platform::KeyedUnarchiver {
public:
    /// Tag values by name; null for none.
    using TagValues = std::shared_ptr<const platform::Dictionary>;

    /// Begins to read the archive `data`.
    ///
    /// Raises UnarchiveException when the bytes are no keyed archive.
    ///
    /// Selector: initWithTagValuesDictionary:data:
    [[nodiscard]] static std::shared_ptr<TextUnarchiver> initWithTagValuesDictionary(
        TagValues tagValues, const platform::Data& data);

    [[nodiscard]] const TagValues& tagValuesDictionary() const { return tagValuesDictionary_; }

private:
    TextUnarchiver(TagValues tagValues, const platform::Data& data);

    TagValues tagValuesDictionary_;
};

}  // namespace parlavox
