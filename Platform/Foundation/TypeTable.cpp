// The rules that the rows of the table keep, checked while compiling.

#include "Platform/Foundation/TypeTable.h"

#include <algorithm>

#include "Platform/Foundation/AsciiCase.h"

namespace platform {
namespace {

constexpr bool standsBefore(std::string_view identifier, std::size_t position) {
    return std::any_of(kTypeTable.begin(), kTypeTable.begin() + position,
                       [&](const TypeRow& row) { return row.identifier == identifier; });
}

// Conformance is worked out in one pass down the table, which also rules out circles.
constexpr bool supertypesStandBefore() {
    for (std::size_t i = 0; i < kTypeTable.size(); ++i) {
        const TypeNames& supertypes = kTypeTable[i].conformsTo;
        if (!std::all_of(supertypes.begin(), supertypes.end(),
                         [i](std::string_view supertype) { return standsBefore(supertype, i); })) {
            return false;
        }
    }
    return true;
}

constexpr bool identifiersDiffer() {
    for (std::size_t i = 0; i < kTypeTable.size(); ++i) {
        if (std::any_of(kTypeTable.begin(), kTypeTable.begin() + i, [i](const TypeRow& row) {
                return equalIgnoringAsciiCase(row.identifier, kTypeTable[i].identifier);
            })) {
            return false;
        }
    }
    return true;
}

constexpr bool isTag(std::string_view tag) {
    return !tag.empty() && tag.front() != '.' && std::all_of(tag.begin(), tag.end(), [](char unit) {
        return unit > ' ' && unit < '\x7F' && unit == asciiLowercase(unit);
    });
}

constexpr bool tagsAreLowerCase() {
    return std::all_of(kTypeTable.begin(), kTypeTable.end(), [](const TypeRow& row) {
        return std::all_of(row.filenameExtensions.begin(), row.filenameExtensions.end(), isTag) &&
               std::all_of(row.mimeTypes.begin(), row.mimeTypes.end(), isTag);
    });
}

constexpr bool declaredTypesHaveDescriptions() {
    return std::all_of(kTypeTable.begin(), kTypeTable.end(), [](const TypeRow& row) {
        return (row.origin == TypeOrigin::Platform) == row.description.empty();
    });
}

static_assert(supertypesStandBefore());
static_assert(identifiersDiffer());
static_assert(tagsAreLowerCase());
static_assert(declaredTypesHaveDescriptions());

}  // namespace
}  // namespace platform
