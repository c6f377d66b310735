#include "Sources/Document/PackageHeader.h"

#include "Platform/Foundation/PropertyListSerialization.h"
#include "Platform/Foundation/TypeRegistry.h"
#include "Sources/Document/PackageFormat.h"

namespace parlavox {

using platform::TypeRegistry;
using platform::Value;

namespace {

Value valueUnder(std::string_view key, const Value& value) {
    const platform::Dictionary* const dictionary = value.dictionary();
    return dictionary != nullptr ? (*dictionary)[key] : Value();
}

}  // namespace

bool isPackageType(std::string_view type) {
    return TypeRegistry::typeConformsToType(type, kForeignDocumentType) ||
           TypeRegistry::typeConformsToType(type, kDocumentType);
}

platform::Result<Value> packageHeader(const platform::Data& contents) {
    return valueUnder(kHeaderKey,
                      PV_TRY(platform::PropertyListSerialization::propertyListWithData(contents)));
}

std::optional<std::int64_t> compatibilityVersion(const Value& header) {
    return valueUnder(kCompatibilityVersionKey, header).integerValue();
}

}  // namespace parlavox
