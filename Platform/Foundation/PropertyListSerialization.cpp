#include "Platform/Foundation/PropertyListSerialization.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/BinaryPropertyList.h"
#include "Platform/Foundation/BinaryPropertyListWriter.h"
#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/OpenStepPropertyList.h"
#include "Platform/Foundation/PropertyListDecoder.h"
#include "Platform/Foundation/Unicode.h"
#include "Platform/Foundation/WideText.h"
#include "Platform/Foundation/XmlPropertyList.h"

namespace platform {
namespace {

Result<Value> valueFromBinary(const Data& data) {
    const BinaryPropertyList list = PV_TRY(BinaryPropertyList::open(data));
    BuildBudget budget(list.size());
    return PropertyListDecoder(list, budget).valueAt(list.topObject());
}

/// The text of bytes in UTF-16 or UTF-32; nothing for others.
std::optional<std::u16string> wideText(std::string_view bytes) {
    if (auto text = utf16FromMarkedBytes(bytes)) {
        return text;
    }
    // Without a mark, as the platform reads it: what would be the mark is passed over.
    if (bytes.size() > 2 && (bytes[0] == '\0' || bytes[1] == '\0')) {
        return utf16FromBigEndianUtf16(bytes.substr(2));
    }
    return std::nullopt;
}

Result<Value> valueFromXmlText(const Data& data, const std::optional<std::u16string>& wide) {
    constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
    if (wide) {
        return valueFromUtf8Xml(utf8FromUtf16(*wide));
    }
    if (data.view().starts_with(kUtf8Mark)) {
        return valueFromUtf8Xml(data.view().substr(kUtf8Mark.size()));
    }
    return valueFromXml(data);
}

Result<Value> valueFromOpenStepText(const Data& data, std::optional<std::u16string> wide) {
    const auto text = wide ? std::move(wide) : utf16FromUtf8(data.view());
    return text ? valueFromOpenStep(*text) : Fault{FaultCode::Malformed, "text that is not UTF-8"};
}

Result<Value> valueFromText(const Data& data, PropertyListFormat& format) {
    auto wide = wideText(data.view());
    auto value = valueFromXmlText(data, wide);
    if (value) {
        format = PropertyListFormat::Xml;
        return value;
    }
    auto oldValue = valueFromOpenStepText(data, std::move(wide));
    if (oldValue) {
        format = PropertyListFormat::OpenStep;
        return oldValue;
    }
    Fault fault = std::move(value).fault();
    fault.detail += "; as old text format: " + oldValue.fault().detail;
    return fault;
}

}  // namespace

Result<Value> PropertyListSerialization::propertyListWithData(const Data& data,
                                                              PropertyListFormat* format) {
    PropertyListFormat found = PropertyListFormat::Binary;
    auto value =
        BinaryPropertyList::hasSignature(data) ? valueFromBinary(data) : valueFromText(data, found);
    if (value && format != nullptr) {
        *format = found;
    }
    return value;
}

Result<Data> PropertyListSerialization::dataWithPropertyList(const Value& propertyList,
                                                             PropertyListFormat format) {
    switch (format) {
        case PropertyListFormat::Xml:
            return xmlFromValue(propertyList);
        case PropertyListFormat::Binary:
            return binaryPropertyListData(propertyList);
        case PropertyListFormat::OpenStep:
            break;
    }
    return Fault{FaultCode::Unsupported, "the old text format is not written"};
}

}  // namespace platform
