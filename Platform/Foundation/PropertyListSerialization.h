// Property lists as bytes: the binary format, XML and, on reading, the old text format.
//
// Class-level operations without state; any thread at once.

#pragma once

#include <cstdint>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// The formats, with the platform's numbers.
enum class PropertyListFormat : std::int32_t { OpenStep = 1, Xml = 100, Binary = 200 };

/// Reads and writes property lists.
class PropertyListSerialization final {
public:
    PropertyListSerialization() = delete;

    /// Returns the value that `data` holds in any of the formats; `format`, when given, receives
    /// which one it is. What is not binary is tried as XML first, and as the old text format when
    /// it is none; a fault names what is wrong with it as either.
    ///
    /// Text is UTF-8, or UTF-16 or UTF-32 with a byte-order mark, or what XML declares. Two ways of
    /// the platform are kept: UTF-16 without a mark is big-endian and loses its first unit, and the
    /// old text format takes no mark in UTF-8.
    ///
    /// Memory and time are bounded by the size of the data: values that it names many times are
    /// shared, nesting beyond 512 levels and values that contain themselves are faults, and XML
    /// entities other than the five predefined ones are refused.
    ///
    /// Selector: propertyListWithData:format:
    static Result<Value> propertyListWithData(const Data& data,
                                              PropertyListFormat* format = nullptr);

    /// Returns `propertyList` as bytes of `format`, or a Fault when it holds an object or null. The
    /// old text format is not written.
    ///
    /// Selector: dataWithPropertyList:format:
    static Result<Data> dataWithPropertyList(const Value& propertyList, PropertyListFormat format);
};

}  // namespace platform
