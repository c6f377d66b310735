// Archived objects whose class nobody here knows, kept as they are.
//
// Whatever an archive says of such an object is kept, so that it can be written again.
// Immutable once decoded; any thread at once.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// How a field stands in an archive. Readers make no difference, other programs' readers do.
enum class FieldForm : std::uint8_t {
    Inline,              ///< the value itself
    Reference,           ///< a reference to an object of the table
    InlineOfReferences,  ///< a container with references in it; all its elements become references
};

/// One field of an archived object.
struct OpaqueField {
    std::string name;
    Value value;
    FieldForm form = FieldForm::Inline;
};

/// What `KeyedUnarchiver` makes of an instance of a class that it doesn't know.
class OpaqueObject final : public Codable {
public:
    /// The class's names; null when the archive states none.
    std::shared_ptr<const ArchivedClassNames> type;
    /// The fields under their names on disk, in the archive's order.
    std::vector<OpaqueField> fields;

    /// Returns an object of the class `names` with these fields.
    [[nodiscard]] static std::shared_ptr<const OpaqueObject> make(std::vector<std::string> names,
                                                                  std::vector<OpaqueField> fields);

    /// Returns the value of the field `name`, null when there is none. Looks through all fields.
    [[nodiscard]] Value operator[](std::string_view name) const;

    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> archivedClass() const override {
        return type;
    }
    void encodeWithCoder(KeyedArchiver& coder) const override;
};

/// Returns the text of a string value as UTF-8, its copy counted against the budget; nothing when
/// the value is no string.
Result<std::optional<std::string>> chargedUtf8(const Value& value, BuildBudget& budget);

/// Stands in an opaque object's fields for an object that contains it.
class BackReference final : public Object {
public:
    explicit BackReference(std::weak_ptr<const OpaqueObject> object) : target(std::move(object)) {}

    std::weak_ptr<const OpaqueObject> target;
};

}  // namespace platform
