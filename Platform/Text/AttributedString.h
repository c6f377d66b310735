// Text with attributes: one UTF-16 string and a list of runs.
//
// Positions and lengths count UTF-16 code units. A run gives one set of attributes to a stretch of
// the text; sets are immutable and shared. Copies of an attributed string share its characters and
// runs.
// Value type; different objects on different threads, one object on one thread at a time.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/Range.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// Attribute values by name. Null where there are no attributes.
using Attributes = std::shared_ptr<const Dictionary>;

/// A stretch of text with one set of attributes; never empty.
struct AttributeRun {
    std::uint64_t length = 0;
    Attributes attributes;
};

/// Adds a run, unless it is empty; one that goes on with the attributes of the last becomes part of
/// it.
void appendRun(std::vector<AttributeRun>& runs, std::uint64_t length, const Attributes& attributes);

/// Characters, and the attributes of each.
class AttributedString : public Codable {
public:
    /// Makes an empty string.
    AttributedString();

    /// Makes a string without attributes.
    ///
    /// Selector: initWithString:
    explicit AttributedString(std::u16string string);

    /// Makes a string of shared characters with runs from its start on; what the runs do not reach
    /// has no attributes.
    ///
    /// Requires: `string` is not null, no run is empty, the runs are no longer than the text.
    AttributedString(std::shared_ptr<const std::u16string> string, std::vector<AttributeRun> runs);

    /// The characters; valid until this object changes or ends.
    [[nodiscard]] const std::u16string& string() const { return *string_; }

    /// The characters, shared.
    [[nodiscard]] std::shared_ptr<const std::u16string> sharedString() const { return string_; }

    [[nodiscard]] std::uint64_t length() const { return string_->size(); }

    /// The runs in the order of the text; together they are as long as the text.
    [[nodiscard]] const std::vector<AttributeRun>& runs() const { return *runs_; }

    /// Returns the attributes of the character at `index`, null when it has none. `effectiveRange`,
    /// when given, receives the extent of the run that gives them.
    ///
    /// Raises RangeException when the index does not lie in the text. Costs a walk over the runs.
    ///
    /// Selector: attributesAtIndex:effectiveRange:
    [[nodiscard]] Attributes attributesAtIndex(std::uint64_t index,
                                               Range* effectiveRange = nullptr) const;

    // Where the text is archived: see AttributedStringCoding.h.
    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> archivedClass() const override;
    void encodeWithCoder(KeyedArchiver& coder) const override;

private:
    std::shared_ptr<const std::u16string> string_;
    std::shared_ptr<const std::vector<AttributeRun>> runs_;
};

}  // namespace platform
