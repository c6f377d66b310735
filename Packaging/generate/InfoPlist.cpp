#include "Packaging/generate/InfoPlist.h"

#include <utility>

#include "Platform/Foundation/TypeTable.h"

namespace packaging {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::TypeNames;
using platform::TypeOrigin;
using platform::TypeRow;
using platform::Value;

// The plug-in's factory and the type of all metadata importers.
constexpr const char* kFactory = "03247F2E-55F1-41D0-9F94-2CA3EB8E3A51";
constexpr const char16_t* kFactoryText = u"03247F2E-55F1-41D0-9F94-2CA3EB8E3A51";
constexpr const char* kImporterType = "8B08C4BF-415B-11D8-B3F9-0003936726FC";

Array strings(const TypeNames& names) {
    Array array;
    for (const std::string_view name : names) {
        array.push_back(Value::fromUtf8(name));
    }
    return array;
}

Dictionary tagsOfType(const TypeRow& row) {
    Dictionary tags;
    if (!row.filenameExtensions.empty()) {
        tags.set("public.filename-extension", strings(row.filenameExtensions));
    }
    if (!row.mimeTypes.empty()) {
        tags.set("public.mime-type", strings(row.mimeTypes));
    }
    return tags;
}

Array declarationsOf(TypeOrigin origin) {
    Array declarations;
    for (const TypeRow& row : platform::kTypeTable) {
        if (row.origin != origin) {
            continue;
        }
        Dictionary declaration{{"UTTypeIdentifier", Value::fromUtf8(row.identifier)},
                               {"UTTypeDescription", Value::fromUtf8(row.description)},
                               {"UTTypeConformsTo", strings(row.conformsTo)}};
        if (Dictionary tags = tagsOfType(row); tags.size() != 0) {
            declaration.set(
                "UTTypeTagSp"
                "ecification",
                std::move(tags));
        }
        declarations.push_back(std::move(declaration));
    }
    return declarations;
}

Array documentTypes() {
    Array taken;
    for (const TypeRow& row : platform::kTypeTable) {
        if (row.taken == platform::TakenByImporter::Yes) {
            taken.push_back(Value::fromUtf8(row.identifier));
        }
    }
    return {
        Dictionary{{"CFBundleTypeRole", u"MDImporter"}, {"LSItemContentTypes", std::move(taken)}}};
}

}  // namespace

Dictionary infoPlist(std::string_view version) {
    return {
        {"CFBundleDevelopmentRegion", u"en"},
        {"CFBundleDocumentTypes", documentTypes()},
        {"CFBundleExecutable", u"Parlavox"},
        {"CFBundleIdentifier", u"com.brightmill.parlavox.importer"},
        {"CFBundleInfoDictionaryVersion", u"6.0"},
        {"CFBundleName", u"Parlavox"},
        {"CFBundlePackageType", u"BNDL"},
        {"CFBundleShortVersionString", Value::fromUtf8(version)},
        {"CFBundleVersion", Value::fromUtf8(version)},
        // Text, not a boolean: only the text "YES" would turn it on.
        {"CFPlugInDynamicRegistration", u"NO"},
        {"CFPlugInFactories", Dictionary{{kFactory, u"MetadataImporterPluginFactory"}}},
        {"CFPlugInTypes", Dictionary{{kImporterType, Array{kFactoryText}}}},
        {"UTExportedTypeDeclarations", declarationsOf(TypeOrigin::Exported)},
        {"UTImportedTypeDeclarations", declarationsOf(TypeOrigin::Imported)},
    };
}

}  // namespace packaging
