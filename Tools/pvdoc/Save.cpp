#include "Tools/pvdoc/Save.h"

#include <sys/stat.h>

#include <algorithm>
#include <memory>
#include <string_view>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/TypeRegistry.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Sources/Document/PackageFormat.h"
#include "Sources/Document/PackageHeader.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/FileTree.h"
#include "Tools/pvdoc/InputFile.h"
#include "Tools/pvdoc/SavedDocument.h"
#include "Tools/pvdoc/TextOfFile.h"

namespace pvdoc {

using parlavox::ZipWrapper;
using platform::Fault;
using platform::FaultCode;
using platform::Outcome;

namespace {

constexpr std::string_view kRecordMark = "PK";

bool lists(const ArchiveListing& listing, std::string_view name) {
    return std::any_of(listing.members.begin(), listing.members.end(),
                       [&](const ListedMember& member) { return member.name == name; });
}

/// Whether the bytes are an archive with a text in it, found in any of the ways in which one may be
/// found. Nothing when they may be an archive that can't be read.
std::optional<bool> holdText(const platform::Data& contents) {
    if (contents.view().find(kRecordMark) == std::string_view::npos) {
        return false;
    }
    const auto listing = listArchive(contents);
    const bool isSound = listing && listing.value().damage.empty();
    if (listing && lists(listing.value(), parlavox::kTextMember)) {
        return true;
    }
    try {
        const auto archive = ZipWrapper::initRegularFileWithContents(contents);
        if (archive != nullptr && archive->fileWrapperForKey(parlavox::kTextMember) != nullptr) {
            return true;
        }
    } catch (const platform::Exception&) {
        return contents.view().starts_with(kRecordMark) ? std::nullopt : std::optional(false);
    }
    return isSound || !contents.view().starts_with(kRecordMark) ? std::optional(false)
                                                                : std::nullopt;
}

Outcome refuseToLoseText(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return platform::done();
    }
    const auto contents = readFile(path);
    if (!contents) {
        return inFile(path, contents.fault());
    }
    const auto holdsText = holdText(contents.value());
    if (!holdsText) {
        return Fault{FaultCode::Unsupported,
                     path +
                         ": is an archive that can't be read and may hold a text, which saving "
                         "would lose; not replaced"};
    }
    if (*holdsText) {
        return Fault{FaultCode::Unsupported,
                     path + ": holds a text (text.plist), which saving would lose; not replaced"};
    }
    return platform::done();
}

std::string typeToSaveAs(const std::string& path) {
    const auto types =
        platform::TypeRegistry::typesForFilenameExtension(platform::pathExtension(path));
    const bool isForeign = !types.empty() && types.front() == parlavox::kForeignDocumentType;
    return isForeign ? parlavox::kForeignDocumentType : parlavox::kDocumentType;
}

/// Reads what was saved at `path` back: its directory must list the members of a document and agree
/// with what they hold.
Outcome check(const std::string& path) {
    const ArchiveListing listing = PV_TRY(listArchiveFile(path));
    const auto differ = [](std::string_view what) {
        return Fault{FaultCode::Malformed, "read back, the archive differs: " + std::string(what)};
    };
    for (const auto name : {parlavox::kDocumentSettingsMember, parlavox::kContentsMember}) {
        if (!lists(listing, name)) {
            return differ(name);
        }
    }
    const auto archive = ZipWrapper::initWithPath(path);
    for (const ListedMember& member : listing.members) {
        const auto wrapper = archive->fileWrapperForKey(member.name);
        const auto summary = wrapper != nullptr ? summaryOf(*wrapper) : ContentsSummary{};
        if (!summary || summary.value() != ContentsSummary{member.size, member.checksum}) {
            return differ(member.name);
        }
    }
    return platform::done();
}

Outcome saveAndCheck(parlavox::Document& document, const std::string& path,
                     const std::string& type) {
    PV_TRY(saveDocument(document, path, type, platform::SaveOperation::SaveAs));
    return check(path);
}

}  // namespace

Outcome save(const Conversion& conversion) {
    // Before --force is asked for: it would not help.
    PV_TRY(refuseToLoseText(conversion.target));
    PV_TRY(checkTarget(conversion.target, conversion.overwrite));
    const auto document = documentOfFile(conversion.source);
    if (!document) {
        return inFile(conversion.source, document.fault());
    }
    return writeBeside(conversion.target, [&](const std::string& path) -> Outcome {
        try {
            return saveAndCheck(*document.value(), path, typeToSaveAs(conversion.target));
        } catch (const platform::Exception& exception) {
            return Fault{FaultCode::System, exception.reason()};
        }
    });
}

}  // namespace pvdoc
