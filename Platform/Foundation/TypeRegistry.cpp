#include "Platform/Foundation/TypeRegistry.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/TypeTable.h"

namespace platform {
namespace {

constexpr std::size_t kTypeCount = kTypeTable.size();

/// One bit for each row of the table.
using TypeSet = std::uint64_t;
static_assert(kTypeCount <= 64, "a set of types no longer fits into one word");

constexpr TypeSet setOf(std::size_t row) {
    return TypeSet{1} << row;
}

/// The rows in the order of their identifiers, for binary search.
constexpr std::array<std::uint8_t, kTypeCount> rowsByIdentifier() {
    std::array<std::uint8_t, kTypeCount> rows{};
    for (std::size_t i = 0; i < kTypeCount; ++i) {
        rows[i] = static_cast<std::uint8_t>(i);
    }
    std::sort(rows.begin(), rows.end(), [](std::uint8_t first, std::uint8_t second) {
        return compareIgnoringAsciiCase(kTypeTable[first].identifier,
                                        kTypeTable[second].identifier) < 0;
    });
    return rows;
}

constexpr auto kRowsByIdentifier = rowsByIdentifier();

/// The row of a type, kTypeCount when it is not declared.
constexpr std::size_t rowOfType(std::string_view identifier) {
    const auto found = std::lower_bound(kRowsByIdentifier.begin(), kRowsByIdentifier.end(),
                                        identifier, [](std::uint8_t row, std::string_view wanted) {
                                            return compareIgnoringAsciiCase(
                                                       kTypeTable[row].identifier, wanted) < 0;
                                        });
    if (found == kRowsByIdentifier.end() ||
        !equalIgnoringAsciiCase(kTypeTable[*found].identifier, identifier)) {
        return kTypeCount;
    }
    return *found;
}

/// For each row, the row itself and all that it conforms to.
constexpr std::array<TypeSet, kTypeCount> supertypeSets() {
    std::array<TypeSet, kTypeCount> sets{};
    for (std::size_t i = 0; i < kTypeCount; ++i) {
        sets[i] = setOf(i);
        for (const std::string_view supertype : kTypeTable[i].conformsTo) {
            // Supertypes stand before their subtypes, so their sets are complete.
            sets[i] |= sets[rowOfType(supertype)];
        }
    }
    return sets;
}

constexpr auto kSupertypeSets = supertypeSets();

/// The types that have `tag` among the tags that `tags` picks.
std::vector<std::string_view> typesWithTag(TypeNames TypeRow::*tags, std::string_view tag) {
    std::vector<std::string_view> types;
    for (const TypeRow& row : kTypeTable) {
        const TypeNames& names = row.*tags;
        if (std::any_of(names.begin(), names.end(), [tag](std::string_view name) {
                return equalIgnoringAsciiCase(name, tag);
            })) {
            types.push_back(row.identifier);
        }
    }
    return types;
}

}  // namespace

bool TypeRegistry::isDeclared(std::string_view identifier) noexcept {
    return rowOfType(identifier) != kTypeCount;
}

bool TypeRegistry::typeConformsToType(std::string_view identifier,
                                      std::string_view conformsToType) noexcept {
    const std::size_t type = rowOfType(identifier);
    if (type == kTypeCount) {
        return equalIgnoringAsciiCase(identifier, conformsToType);
    }
    const std::size_t supertype = rowOfType(conformsToType);
    return supertype != kTypeCount && (kSupertypeSets[type] & setOf(supertype)) != 0;
}

std::vector<std::string_view> TypeRegistry::typesForFilenameExtension(
    std::string_view filenameExtension) {
    return typesWithTag(&TypeRow::filenameExtensions, filenameExtension);
}

std::vector<std::string_view> TypeRegistry::typesForMimeType(std::string_view mimeType) {
    std::string compact(mimeType);
    std::erase_if(compact, [](char unit) { return unit == ' ' || unit == '\t'; });
    std::vector<std::string_view> types = typesWithTag(&TypeRow::mimeTypes, compact);
    if (types.empty()) {
        const std::string_view withoutParameters =
            std::string_view(compact).substr(0, compact.find(';'));
        types = typesWithTag(&TypeRow::mimeTypes, withoutParameters);
    }
    return types;
}

std::optional<std::string_view> TypeRegistry::preferredFilenameExtensionForType(
    std::string_view identifier) noexcept {
    const std::size_t row = rowOfType(identifier);
    if (row == kTypeCount || kTypeTable[row].filenameExtensions.empty()) {
        return std::nullopt;
    }
    return *kTypeTable[row].filenameExtensions.begin();
}

}  // namespace platform
