#include "Platform/Foundation/URLReference.h"

#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {

std::shared_ptr<const URLReference> URLReference::fromArchived(
    std::shared_ptr<const OpaqueObject> archived) {
    auto string = (*archived)["NS.relative"].utf8();
    if (!string) {
        return nullptr;
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
