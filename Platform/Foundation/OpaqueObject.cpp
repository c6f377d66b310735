#include "Platform/Foundation/OpaqueObject.h"

#include <algorithm>

#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {

Value OpaqueObject::operator[](std::string_view name) const {
    const auto field = std::find_if(fields.begin(), fields.end(),
                                    [&](const OpaqueField& f) { return f.name == name; });
    return field != fields.end() ? field->value : Value();
}

void OpaqueObject::encodeWithCoder(KeyedArchiver& coder) const {
    for (const OpaqueField& field : fields) {
        coder.encodeField(field);
    }
}

}  // namespace platform
