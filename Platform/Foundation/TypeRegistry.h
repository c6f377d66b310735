// What is known about types of documents: which conforms to which, and the file name extensions
// and MIME types that stand for them.
//
// Types are named by their identifiers. Identifiers, extensions and MIME types compare without
// regard to the case of ASCII letters. A type that is not declared conforms to itself alone and has
// no extension. Nothing here fails or raises.
// Class-level operations over constant data; any thread at once. Returned names live as long as the
// code.

#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace platform {

/// Answers questions about types; never instantiated.
class TypeRegistry final {
public:
    TypeRegistry() = delete;

    /// Whether the system knows a type of this identifier.
    [[nodiscard]] static bool isDeclared(std::string_view identifier) noexcept;

    /// Whether `identifier` is `conformsToType`, or conforms to it directly or through others.
    ///
    /// Allocates nothing.
    ///
    /// Selector: type:conformsToType:
    [[nodiscard]] static bool typeConformsToType(std::string_view identifier,
                                                 std::string_view conformsToType) noexcept;

    /// Returns the types that files with `filenameExtension` (without the dot) may have, none when
    /// no type has it.
    [[nodiscard]] static std::vector<std::string_view> typesForFilenameExtension(
        std::string_view filenameExtension);

    /// Returns the types that `mimeType` stands for, none when there is no such type.
    ///
    /// Blanks around its parameters do not count. Parameters narrow the answer where a type names
    /// the same ones; otherwise they are left aside.
    [[nodiscard]] static std::vector<std::string_view> typesForMimeType(std::string_view mimeType);

    /// Returns the extension, without the dot, that a new file of the type gets; nothing when the
    /// type has none of its own.
    ///
    /// Selector: preferredFilenameExtensionForType:
    [[nodiscard]] static std::optional<std::string_view> preferredFilenameExtensionForType(
        std::string_view identifier) noexcept;
};

}  // namespace platform
