#include "Host/ImporterTypes.h"

#include <algorithm>
#include <utility>

#include "Platform/Foundation/AsciiCase.h"
#include "Platform/Foundation/TypeRegistry.h"
#include "Platform/Foundation/TypeTable.h"

namespace host {
namespace {

using platform::equalIgnoringAsciiCase;

bool holds(const std::vector<std::string>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const std::string& one) { return equalIgnoringAsciiCase(one, name); });
}

std::vector<std::string> stringsOf(const platform::TypeNames& names) {
    return {names.begin(), names.end()};
}

// What other bundles declare is theirs to say: only the platform's own rows count.
DeclaredType platformType(std::string_view identifier) {
    for (const platform::TypeRow& row : platform::kTypeTable) {
        if (row.origin == platform::TypeOrigin::Platform &&
            equalIgnoringAsciiCase(row.identifier, identifier)) {
            return {std::string(row.identifier), stringsOf(row.conformsTo),
                    stringsOf(row.filenameExtensions), stringsOf(row.mimeTypes),
                    std::string(row.description)};
        }
    }
    return {std::string(identifier), {}, {}, {}, {}};
}

}  // namespace

ImporterTypes::ImporterTypes(const std::vector<std::string>& taken,
                             std::vector<DeclaredType> declared)
    : declared_(std::move(declared)) {
    for (const std::string& identifier : taken) {
        if (!holds(taken_, identifier)) {
            taken_.push_back(identifier);
        }
    }
}

const DeclaredType* ImporterTypes::declaration(std::string_view identifier) const {
    const auto found =
        std::find_if(declared_.begin(), declared_.end(), [&](const DeclaredType& type) {
            return equalIgnoringAsciiCase(type.identifier, identifier);
        });
    return found == declared_.end() ? nullptr : &*found;
}

DeclaredType ImporterTypes::describe(std::string_view identifier) const {
    const DeclaredType* declared = declaration(identifier);
    return declared != nullptr ? *declared : platformType(identifier);
}

bool ImporterTypes::takesOneAbove(std::string_view identifier) const {
    return std::any_of(taken_.begin(), taken_.end(), [&](const std::string& taken) {
        return platform::TypeRegistry::typeConformsToType(identifier, taken);
    });
}

bool ImporterTypes::takes(std::string_view identifier) const {
    // A bundle's declarations may go in circles, so each type is looked at once.
    std::vector<std::string> reached{std::string(identifier)};
    for (std::size_t next = 0; next < reached.size(); ++next) {
        if (takesOneAbove(reached[next])) {
            return true;
        }
        if (const DeclaredType* declared = declaration(reached[next])) {
            for (const std::string& supertype : declared->conformsTo) {
                if (!holds(reached, supertype)) {
                    reached.push_back(supertype);
                }
            }
        }
    }
    return false;
}

std::vector<std::string> ImporterTypes::typesForExtension(std::string_view extension) const {
    std::vector<std::string> types;
    for (const DeclaredType& type : declared_) {
        if (holds(type.extensions, extension)) {
            types.push_back(type.identifier);
        }
    }
    for (const std::string_view type :
         platform::TypeRegistry::typesForFilenameExtension(extension)) {
        if (!holds(types, type)) {
            types.emplace_back(type);
        }
    }
    return types;
}

}  // namespace host
