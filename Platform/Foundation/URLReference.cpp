#include "Platform/Foundation/URLReference.h"

#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {

Result<std::shared_ptr<const URLReference>> URLReference::fromArchived(
    std::shared_ptr<const OpaqueObject> archived, BuildBudget& budget) {
    auto string = PV_TRY(chargedUtf8((*archived)["NS.relative"], budget));
    if (!string) {
        return std::shared_ptr<const URLReference>();
    }
    auto base = std::dynamic_pointer_cast<const URLReference>((*archived)["NS.base"].object());
    return std::shared_ptr<const URLReference>(
        new URLReference(std::move(archived), std::move(*string), std::move(base)));
}

std::shared_ptr<const ArchivedClassNames> URLReference::ownClass() const {
    return classNamed({"NSURL", "NSObject"});
}

void URLReference::encodeFields(KeyedArchiver& coder) const {
    coder.encodeObject(Value(base_), "NS.base");
    coder.encodeObject(Value::fromUtf8(string_), "NS.relative");
}

}  // namespace platform
