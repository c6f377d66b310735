#include "Tools/pvdoc/Info.h"

#include <array>
#include <cstdio>

#include "Platform/Foundation/Exception.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Sources/Document/PackageFormat.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/Header.h"
#include "Tools/pvdoc/InputFile.h"

namespace pvdoc {

using platform::Data;
using platform::Result;

namespace {

std::string describe(const ListedMember& member) {
    std::array<char, 16> checksum{};
    std::snprintf(checksum.data(), checksum.size(), "%08x", member.checksum);
    return member.name + ", " + methodName(member.method) + ", " +
           std::to_string(member.packedSize) + " of " + counted(member.size, "byte") + ", CRC-32 " +
           checksum.data();
}

void reportMembers(Report& report, const ArchiveListing& listing) {
    report.add("archive", "end record at " + std::to_string(listing.endRecord) + ", " +
                              counted(listing.declaredCount, "member"));
    for (const ListedMember& member : listing.members) {
        report.add("member", describe(member));
    }
    if (!listing.damage.empty()) {
        report.add("damage", listing.damage);
    }
}

/// The bytes of the header's member as the importer gets them.
std::optional<Data> headerContents(const Data& archive, Report& report) {
    try {
        const auto wrapper = parlavox::ZipWrapper::initRegularFileWithContents(archive);
        const auto member =
            wrapper != nullptr ? wrapper->fileWrapperForKey(parlavox::kContentsMember) : nullptr;
        if (member != nullptr && member->isRegularFile()) {
            return member->regularFileContents();
        }
        report.add("header", "none: no member contents.plist");
    } catch (const platform::Exception& exception) {
        report.add("header", "none: " + exception.reason());
    }
    return std::nullopt;
}

}  // namespace

Result<std::string> info(const std::string& path) {
    const Data archive = PV_TRY(readFile(path));
    const auto listing = listArchive(archive);
    if (!listing) {
        return platform::Fault{listing.fault().code, "no archive: " + listing.fault().detail};
    }
    Report report;
    report.add("file", path + ", " + counted(archive.size(), "byte"));
    reportMembers(report, listing.value());
    if (const auto contents = headerContents(archive, report)) {
        reportHeader(report, *contents);
    }
    return report.text();
}

}  // namespace pvdoc
