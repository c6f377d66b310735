// The root of classes that read the objects of other programs.
//
// What a class does not understand of an archived object is not lost: an object that came from an
// archive is written again just as it stood there. Immutable; any thread at once.

#pragma once

#include <memory>
#include <utility>

#include "Platform/Foundation/Codable.h"
#include "Platform/Foundation/OpaqueObject.h"

namespace platform {

/// An object with a meaning here, and with its original where it came from an archive.
class PreservedObject : public Codable {
public:
    /// The object as it stood in its archive; null when it was made here.
    [[nodiscard]] const std::shared_ptr<const OpaqueObject>& archivedForm() const {
        return archivedForm_;
    }

    [[nodiscard]] std::shared_ptr<const ArchivedClassNames> archivedClass() const final {
        return archivedForm_ ? archivedForm_->type : ownClass();
    }
    void encodeWithCoder(KeyedArchiver& coder) const final {
        archivedForm_ ? archivedForm_->encodeWithCoder(coder) : encodeFields(coder);
    }

protected:
    PreservedObject() = default;
    explicit PreservedObject(std::shared_ptr<const OpaqueObject> archivedForm)
        : archivedForm_(std::move(archivedForm)) {}

private:
    /// The class of objects that were made here.
    [[nodiscard]] virtual std::shared_ptr<const ArchivedClassNames> ownClass() const = 0;

    /// Gives the fields of an object that was made here.
    virtual void encodeFields(KeyedArchiver& coder) const = 0;

    std::shared_ptr<const OpaqueObject> archivedForm_;
};

}  // namespace platform
