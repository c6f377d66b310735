// What an importer takes and which types its bundle declares, as its Info.plist says.
//
// Identifiers and extensions compare without regard to the case of ASCII letters; extensions have
// no dot. All text is UTF-8. Immutable once it is made; any thread at once.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// One type of document.
struct DeclaredType {
    std::string identifier;
    std::vector<std::string> conformsTo;
    std::vector<std::string> extensions;
    std::vector<std::string> mimeTypes;
    /// For people; empty when the declaration has none.
    std::string description;
};

/// Answers what an importer takes, from its own declarations and the platform's types.
class ImporterTypes {
public:
    /// `taken` are the identifiers of the types that the importer takes, `declared` the types that
    /// its bundle declares. An identifier that is named twice counts once.
    ImporterTypes(const std::vector<std::string>& taken, std::vector<DeclaredType> declared);

    /// The identifiers of the types that the importer takes, in the bundle's order.
    [[nodiscard]] const std::vector<std::string>& taken() const { return taken_; }

    /// Returns all that is known of a type: the bundle's declaration or else the platform's. Of an
    /// unknown type that is its identifier alone.
    [[nodiscard]] DeclaredType describe(std::string_view identifier) const;

    /// Whether the type is, or conforms to, one that the importer takes.
    [[nodiscard]] bool takes(std::string_view identifier) const;

    /// Returns the types of files with the extension, the bundle's first.
    [[nodiscard]] std::vector<std::string> typesForExtension(std::string_view extension) const;

private:
    [[nodiscard]] const DeclaredType* declaration(std::string_view identifier) const;
    [[nodiscard]] bool takesOneAbove(std::string_view identifier) const;

    std::vector<std::string> taken_;
    std::vector<DeclaredType> declared_;
};

}  // namespace host
