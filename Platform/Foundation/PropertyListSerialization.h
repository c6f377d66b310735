// Property lists as bytes: the binary format, XML and, in time, the old text format.
//
// Class-level operations without state; any thread at once.

#pragma once

#include <cstdint>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// The formats, with the platform's numbers.
enum class PropertyListFormat : std::int32_t { Xml = 100, Binary = 200 };

/// Reads and writes property lists.
class PropertyListSerialization final {
public:
    PropertyListSerialization() = delete;

    /// Returns the value that `data` holds in any of the formats.
    ///
    /// Memory and time are bounded by the size of the data: values that it names many times are
    /// shared, nesting beyond 512 levels and values that contain themselves are faults, and XML
    /// entities other than the five predefined ones are refused.
    ///
    /// Selector: propertyListWithData:
    static Result<Value> propertyListWithData(const Data& data);

    /// Returns `propertyList` as bytes of `format`, or a Fault when it holds an object or null.
    ///
    /// Selector: dataWithPropertyList:format:
    static Result<Data> dataWithPropertyList(const Value& propertyList, PropertyListFormat format);
};

}  // namespace platform
