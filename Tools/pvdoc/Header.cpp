#include "Tools/pvdoc/Header.h"

#include <string>

#include "Platform/Foundation/CalendarDate.h"
#include "Sources/Document/PackageHeader.h"

namespace pvdoc {

using platform::Dictionary;
using platform::Value;
using platform::ValueKind;

std::string shown(const Value& value) {
    switch (value.kind()) {
        case ValueKind::Null:
            return "nothing";
        case ValueKind::Boolean:
            return *value.boolean() ? "true" : "false";
        case ValueKind::Integer:
            return value.integer() ? std::to_string(*value.integer())
                                   : std::to_string(*value.unsignedInteger());
        case ValueKind::Real:
            return std::to_string(*value.real());
        case ValueKind::Date:
            return platform::textFromDate(*value.date());
        case ValueKind::Data:
            return "data of " + counted(value.data()->size(), "byte");
        case ValueKind::String:
            return '"' + *value.utf8() + '"';
        case ValueKind::Array:
            return "array of " + counted(value.array()->size(), "element");
        case ValueKind::Dictionary:
            return "dictionary of " + counted(value.dictionary()->size(), "key");
        case ValueKind::Uid:
            return "reference " + std::to_string(value.uid()->index);
        default:
            return "object";
    }
}

void reportHeader(Report& report, const platform::Data& contents) {
    const auto value = parlavox::packageHeader(contents);
    if (!value) {
        report.add("header", "no property list: " + value.fault().detail);
        return;
    }
    const Dictionary* const header = value.value().dictionary();
    if (header == nullptr) {
        report.add("header", "none in the property list");
        return;
    }
    report.add("header", counted(header->size(), "key"));
    for (const auto& [key, entry] : header->entries()) {
        report.add("", key + " = " + shown(entry));
    }
}

}  // namespace pvdoc
