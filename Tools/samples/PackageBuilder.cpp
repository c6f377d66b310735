#include "Tools/samples/PackageBuilder.h"

#include <utility>

#include "Platform/Foundation/PropertyListSerialization.h"
#include "Sources/Document/PackageFormat.h"

namespace samples {

using platform::Data;
using platform::Date;
using platform::Dictionary;
using platform::PropertyListFormat;
using platform::PropertyListSerialization;
using platform::Value;

Data contentsPlist(Value compatibilityVersion) {
    Dictionary header{{std::string(parlavox::kApplicationKey), Value(u"samples")},
                      {std::string(parlavox::kApplicationVersionKey), Value(u"1.0")},
                      {std::string(parlavox::kCreatedKey), Value(Date{700000000})},
                      {std::string(parlavox::kDocumentFormatVersionKey),
                       Value(parlavox::kDocumentFormatVersion)}};
    if (!compatibilityVersion.isNull()) {
        header.set(std::string(parlavox::kCompatibilityVersionKey),
                   std::move(compatibilityVersion));
    }
    const Value contents =
        Dictionary{{std::string(parlavox::kHeaderKey), Value(std::move(header))}};
    return PropertyListSerialization::dataWithPropertyList(contents, PropertyListFormat::Xml)
        .value();
}

Data package(const Data& text, Value compatibilityVersion, Packing packing) {
    ZipBuilder zip;
    zip.add(parlavox::kContentsMember, contentsPlist(std::move(compatibilityVersion)), packing);
    zip.add(parlavox::kTextMember, text, packing);
    return zip.finish();
}

}  // namespace samples
