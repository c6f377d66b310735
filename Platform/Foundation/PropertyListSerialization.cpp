#include "Platform/Foundation/PropertyListSerialization.h"

#include <utility>

#include "Platform/Foundation/BinaryPropertyList.h"
#include "Platform/Foundation/BinaryPropertyListWriter.h"
#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/PropertyListDecoder.h"
#include "Platform/Foundation/XmlPropertyList.h"

namespace platform {

Result<Value> PropertyListSerialization::propertyListWithData(const Data& data) {
    if (!BinaryPropertyList::hasSignature(data)) {
        return valueFromXml(data);
    }
    const BinaryPropertyList list = PV_TRY(BinaryPropertyList::open(data));
    BuildBudget budget(list.size());
    return PropertyListDecoder(list, budget).valueAt(list.topObject());
}

Result<Data> PropertyListSerialization::dataWithPropertyList(const Value& propertyList,
                                                             PropertyListFormat format) {
    return format == PropertyListFormat::Binary ? binaryPropertyListData(propertyList)
                                                : xmlFromValue(propertyList);
}

}  // namespace platform
