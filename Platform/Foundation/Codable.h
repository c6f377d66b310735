// Objects that keyed archives can hold.
//
// How they are read is told by a table of CodableClass rows (see KeyedUnarchiver.h).

#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Value.h"

namespace platform {

class KeyedArchiver;

/// The names that an archive states for a class.
struct ArchivedClassNames {
    /// The name that instances were archived under, then superclasses as far as they are stated.
    std::vector<std::string> names;
    /// Names of classes that may stand in for it.
    std::vector<std::string> hints;
};

/// Returns the names of a class that is written here, its own first.
[[nodiscard]] inline std::shared_ptr<const ArchivedClassNames> classNamed(
    std::vector<std::string> names) {
    return std::make_shared<const ArchivedClassNames>(ArchivedClassNames{std::move(names), {}});
}

/// The root of the classes whose instances know how to be archived.
class Codable : public Object {
public:
    /// The names that the archive states for the object's class; null for an object without a
    /// class, which few readers take.
    [[nodiscard]] virtual std::shared_ptr<const ArchivedClassNames> archivedClass() const = 0;

    /// Gives the object's fields to `coder`.
    ///
    /// Selector: encodeWithCoder:
    virtual void encodeWithCoder(KeyedArchiver& coder) const = 0;
};

}  // namespace platform
