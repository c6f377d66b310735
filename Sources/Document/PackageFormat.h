// The document's file: a zip archive whose members are property lists.
//
// The names and numbers of the format; Documentation/package-format.md describes it.

#pragma once

#include <cstdint>
#include <string_view>

namespace parlavox {

/// The document's own type.
inline constexpr char kDocumentType[] = "com.brightmill.parlavox.parlavox";

/// Another application's type, which has the very same format.
inline constexpr char kForeignDocumentType[] = "com.fernleaf.scribo.scribo";

/// The domain of the system's own error, and its one code.
inline constexpr char PVSpecificErrorDomain[] = "PVSpecificErrorDomain";
inline constexpr std::int64_t kNewerReaderNeeded = 0;

// Members, all at the top level of the archive.
inline constexpr std::string_view kContentsMember = "contents.plist";
inline constexpr std::string_view kTextMember = "text.plist";
inline constexpr std::string_view kDocumentSettingsMember = "documentSettings.plist";
inline constexpr std::string_view kTagTemplatesMember = "tagTemplates.plist";

// "contents.plist" holds one dictionary under the first key, with the other keys in it.
inline constexpr std::string_view kHeaderKey = "header";
inline constexpr std::string_view kApplicationKey = "application";
inline constexpr std::string_view kApplicationVersionKey = "application_version";
inline constexpr std::string_view kCreatedKey = "created";
inline constexpr std::string_view kDocumentFormatVersionKey = "document_format_version";
inline constexpr std::string_view kCompatibilityVersionKey = "compatibility_version";

// What a writer states: the format that it wrote, and the oldest that a reader must know.
inline constexpr std::int64_t kDocumentFormatVersion = 1;
inline constexpr std::int64_t kCompatibilityVersion = 2;

/// A file that states this compatibility version or more needs a newer reader.
inline constexpr std::int64_t kFirstUnknownCompatibilityVersion = 3;

}  // namespace parlavox
