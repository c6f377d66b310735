#include "Platform/Foundation/ArrayIndexes.h"

#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Exception.h"

namespace platform {
namespace {

/// Raises unless the index is below `end`.
void checkIndex(std::uint64_t index, std::uint64_t end) {
    if (index >= end) {
        raise(RangeException("index " + std::to_string(index) + " beyond an array of " +
                             std::to_string(end)));
    }
}

/// Raises unless all indexes are below `end`.
void checkIndexes(const IndexSet& indexes, std::uint64_t end) {
    if (!indexes.isEmpty()) {
        checkIndex(indexes.lastIndex(), end);
    }
}

void checkCounts(std::string_view operation, const Array& objects, const IndexSet& indexes) {
    if (objects.size() != indexes.count()) {
        raise(InvalidArgumentException("*** -[NSMutableArray " + std::string(operation) +
                                       "]: count of array (" + std::to_string(objects.size()) +
                                       ") differs from count of index set (" +
                                       std::to_string(indexes.count()) + ")"));
    }
}

Array::difference_type offset(std::uint64_t index) {
    return static_cast<Array::difference_type>(index);
}

}  // namespace

Array objectsAtIndexes(const Array& array, const IndexSet& indexes) {
    checkIndexes(indexes, array.size());
    Array objects;
    for (const Range& range : indexes.ranges()) {
        objects.insert(objects.end(), array.begin() + offset(range.location),
                       array.begin() + offset(range.end()));
    }
    return objects;
}

void insertObjects(Array& array, const Array& objects, const IndexSet& atIndexes) {
    checkCounts("insertObjects:atIndexes:", objects, atIndexes);
    // The highest index is met last, when all others are in.
    checkIndexes(atIndexes, array.size() + objects.size());
    Array result;
    result.reserve(array.size() + objects.size());
    auto kept = std::make_move_iterator(array.begin());
    auto inserted = objects.begin();
    for (const Range& range : atIndexes.ranges()) {
        const auto count = offset(range.location - result.size());
        result.insert(result.end(), kept, kept + count);
        kept += count;
        result.insert(result.end(), inserted, inserted + offset(range.length));
        inserted += offset(range.length);
    }
    result.insert(result.end(), kept, std::make_move_iterator(array.end()));
    array = std::move(result);
}

void removeObjectsAtIndexes(Array& array, const IndexSet& indexes) {
    checkIndexes(indexes, array.size());
    std::uint64_t index = 0;
    std::erase_if(array, [&](const Value&) { return indexes.containsIndex(index++); });
}

void replaceObjectsAtIndexes(Array& array, const IndexSet& indexes, const Array& withObjects) {
    checkCounts("replaceObjectsAtIndexes:withObjects:", withObjects, indexes);
    checkIndexes(indexes, array.size());
    auto object = withObjects.begin();
    for (const Range& range : indexes.ranges()) {
        for (std::uint64_t index = range.location; index < range.end(); ++index) {
            array[index] = *object++;
        }
    }
}

const Value& objectAtIndex(const Array& array, std::uint64_t index) {
    checkIndex(index, array.size());
    return array[index];
}

void insertObject(Array& array, Value object, std::uint64_t atIndex) {
    checkIndex(atIndex, array.size() + 1);
    array.insert(array.begin() + offset(atIndex), std::move(object));
}

void removeObjectAtIndex(Array& array, std::uint64_t index) {
    checkIndex(index, array.size());
    array.erase(array.begin() + offset(index));
}

}  // namespace platform
