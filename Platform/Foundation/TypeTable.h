// The one table of types: what the system knows about each type of document.
//
// The type registry answers from it, and the bundle's Info.plist and the desktop's MIME package are
// generated from it, so a type is added, or taken by the importer, here and nowhere else.
// Constant data; any thread at once. All names are UTF-8 and live as long as the code.

#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace platform {

/// A short constant list of names.
class TypeNames {
public:
    constexpr TypeNames() = default;

    /// Requires: at most three names, which the compiler checks where the list is a constant.
    constexpr TypeNames(std::initializer_list<std::string_view> names) {
        for (const std::string_view name : names) {
            names_.at(size_++) = name;
        }
    }

    [[nodiscard]] constexpr const std::string_view* begin() const { return names_.data(); }
    [[nodiscard]] constexpr const std::string_view* end() const { return names_.data() + size_; }
    [[nodiscard]] constexpr std::size_t size() const { return size_; }
    [[nodiscard]] constexpr bool empty() const { return size_ == 0; }

private:
    std::array<std::string_view, 3> names_{};
    std::size_t size_ = 0;
};

/// Who declares a type.
enum class TypeOrigin {
    Platform,  ///< the platform itself
    Exported,  ///< our bundle: the type is ours
    Imported,  ///< our bundle, on behalf of the application that the type belongs to
};

/// Whether the importer takes files of a type.
enum class TakenByImporter : bool { No, Yes };

/// One type of document.
struct TypeRow {
    std::string_view identifier;
    /// The types it directly conforms to, in the order in which properties are inherited.
    TypeNames conformsTo;
    /// Lower case and without the dot; the preferred one first.
    TypeNames filenameExtensions;
    /// Lower case; the preferred one first.
    TypeNames mimeTypes;
    /// For people; only types that our bundle declares have one.
    std::string_view description = {};
    TypeOrigin origin = TypeOrigin::Platform;
    TakenByImporter taken = TakenByImporter::No;
};

/// Adds that the importer takes files of the type.
[[nodiscard]] constexpr TypeRow taken(TypeRow row) {
    row.taken = TakenByImporter::Yes;
    return row;
}

/// All rows. A type stands after those that it conforms to.
inline constexpr auto kTypeTable = std::to_array<TypeRow>({
    // What other types build on.
    {"public.item", {}, {}, {}},
    {"public.content", {}, {}, {}},
    {"com.apple.resolvable", {}, {}, {}},
    {"public.data", {"public.item"}, {}, {"application/octet-stream"}},
    {"public.symlink", {"public.item", "com.apple.resolvable"}, {}, {}},
    {"public.directory", {"public.item"}, {}, {}},
    {"public.folder", {"public.directory"}, {}, {}},
    {"com.apple.package", {"public.directory"}, {}, {}},
    {"com.apple.bundle", {"public.directory"}, {}, {}},
    {"com.apple.plugin", {"com.apple.bundle", "com.apple.package"}, {}, {}},
    {"com.apple.metadata-importer", {"com.apple.plugin"}, {"mdimporter"}, {}},
    {"public.composite-content", {"public.content"}, {}, {}},

    // Text.
    {"public.text", {"public.data", "public.content"}, {}, {}},
    taken({"public.plain-text", {"public.text"}, {"txt", "text"}, {"text/plain"}}),
    taken({"public.utf8-plain-text", {"public.plain-text"}, {}, {"text/plain;charset=utf-8"}}),
    taken({"public.utf16-plain-text", {"public.plain-text"}, {}, {}}),
    taken({"public.utf16-external-plain-text", {"public.plain-text"}, {}, {}}),
    {"com.apple.traditional-mac-plain-text", {"public.plain-text"}, {}, {}},
    taken({"public.rtf", {"public.text"}, {"rtf"}, {"text/rtf", "application/rtf"}}),
    taken({"public.html", {"public.text"}, {"html", "htm"}, {"text/html"}}),
    {"public.xml", {"public.text"}, {"xml"}, {"application/xml", "text/xml"}},

    // Documents of more than text.
    taken({"com.apple.rtfd", {"com.apple.package", "public.composite-content"}, {"rtfd"}, {}}),
    taken({"com.apple.flat-rtfd", {"public.data", "public.composite-content"}, {}, {}}),
    taken({"com.adobe.pdf",
           {"public.data", "public.composite-content"},
           {"pdf"},
           {"application/pdf"}}),
    {"com.apple.webarchive",
     {"public.data", "public.composite-content"},
     {"webarchive"},
     {"application/x-webarchive"}},
    {"org.idpf.epub-container",
     {"public.data", "public.composite-content"},
     {"epub"},
     {"application/epub+zip"}},
    {"org.openxmlformats.openxml", {"public.data"}, {}, {}},
    {"org.openxmlformats.wordprocessingml.document",
     {"org.openxmlformats.openxml", "public.composite-content"},
     {"docx"},
     {"application/vnd.openxmlformats-officedocument.wordprocessingml.document"}},
    {"org.oasis-open.opendocument", {"public.data"}, {}, {}},
    {"org.oasis-open.opendocument.text",
     {"org.oasis-open.opendocument", "public.composite-content"},
     {"odt"},
     {"application/vnd.oasis.opendocument.text"}},
    {"com.microsoft.word.doc",
     {"public.data", "public.composite-content"},
     {"doc"},
     {"application/msword"}},

    // What our bundle declares.
    taken({"com.brightmill.parlavox.parlavox",
           {"public.data", "public.composite-content"},
           {"parlavox"},
           {"application/vnd.brightmill.parlavox+zip"},
           "Parlavox document",
           TypeOrigin::Exported}),
    taken({"com.fernleaf.scribo.scribo",
           {"public.data", "public.composite-content"},
           {"scribo"},
           {"application/vnd.fernleaf.scribo+zip"},
           "Scribo document",
           TypeOrigin::Imported}),
    {"com.brightmill.parlavox.rtf-no-tags",
     {"public.rtf"},
     {},
     {},
     "Rich text without tags",
     TypeOrigin::Exported},
    {"com.brightmill.parlavox.txt-no-tags",
     {"public.utf8-plain-text"},
     {},
     {},
     "Plain text without tags",
     TypeOrigin::Exported},
});

}  // namespace platform
