// What the platform's arrays do at several indexes at once.
//
// Each operation checks all indexes before it changes anything and costs one pass over the array.
// Pure functions; any thread at once.

#pragma once

#include <cstdint>

#include "Platform/Foundation/IndexSet.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// Returns the objects at the indexes, in ascending order.
///
/// Raises RangeException when an index lies beyond the array.
///
/// Selector: objectsAtIndexes:
[[nodiscard]] Array objectsAtIndexes(const Array& array, const IndexSet& indexes);

/// Inserts objects so that each is at its index in the result: the first at the lowest.
///
/// Raises InvalidArgumentException when there are more or fewer objects than indexes, and
/// RangeException when an index lies beyond what the array is long by then; it may be its end.
///
/// Selector: insertObjects:atIndexes:
void insertObjects(Array& array, const Array& objects, const IndexSet& atIndexes);

/// Removes the objects at the indexes, all at once.
///
/// Raises RangeException when an index lies beyond the array.
///
/// Selector: removeObjectsAtIndexes:
void removeObjectsAtIndexes(Array& array, const IndexSet& indexes);

/// Puts the objects in the places of those at the indexes, the first at the lowest.
///
/// Raises InvalidArgumentException when there are more or fewer objects than indexes, and
/// RangeException when an index lies beyond the array.
///
/// Selector: replaceObjectsAtIndexes:withObjects:
void replaceObjectsAtIndexes(Array& array, const IndexSet& indexes, const Array& withObjects);

/// Raises RangeException when the index lies beyond the array.
///
/// Selector: objectAtIndex:
[[nodiscard]] const Value& objectAtIndex(const Array& array, std::uint64_t index);

/// Raises RangeException when the index lies beyond the array's end.
///
/// Selector: insertObject:atIndex:
void insertObject(Array& array, Value object, std::uint64_t atIndex);

/// Raises RangeException when the index lies beyond the array.
///
/// Selector: removeObjectAtIndex:
void removeObjectAtIndex(Array& array, std::uint64_t index);

}  // namespace platform
