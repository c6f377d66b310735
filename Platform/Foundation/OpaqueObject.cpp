#include "Platform/Foundation/OpaqueObject.h"

#include <algorithm>

#include "Platform/Foundation/KeyedArchiver.h"

namespace platform {

std::shared_ptr<const OpaqueObject> OpaqueObject::make(std::vector<std::string> names,
                                                       std::vector<OpaqueField> fields) {
    const auto object = std::make_shared<OpaqueObject>();
    object->type = classNamed(std::move(names));
    object->fields = std::move(fields);
    return object;
}

Value OpaqueObject::operator[](std::string_view name) const {
    const auto field = std::find_if(fields.begin(), fields.end(),
                                    [&](const OpaqueField& f) { return f.name == name; });
    return field != fields.end() ? field->value : Value();
}

Result<std::optional<std::string>> chargedUtf8(const Value& value, BuildBudget& budget) {
    if (value.string() == nullptr) {
        return std::optional<std::string>();
    }
    PV_TRY(budget.charge(value.string()->size()));
    return value.utf8();
}

void OpaqueObject::encodeWithCoder(KeyedArchiver& coder) const {
    for (const OpaqueField& field : fields) {
        coder.encodeField(field);
    }
}

}  // namespace platform
