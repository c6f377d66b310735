// Property lists in XML.
//
// Stateless; any thread at once.

#pragma once

#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// Returns the value that the XML property list `data` holds. Faults name the line.
///
/// Declared entities are refused and nothing outside of `data` is ever read. A reference of a keyed
/// archive stays the one-key dictionary that it is in XML.
Result<Value> valueFromXml(const Data& data);

/// Does the same for text that is UTF-8 already, whatever encoding it declares.
Result<Value> valueFromUtf8Xml(std::string_view text);

/// Returns `propertyList` as an XML property list: UTF-8, one tab a level, keys in order of their
/// characters, references as one-key dictionaries. A Fault when it holds an object or nests deeper
/// than property lists may.
Result<Data> xmlFromValue(const Value& propertyList);

}  // namespace platform
