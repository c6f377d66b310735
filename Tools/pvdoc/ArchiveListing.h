// What the central directory of a zip archive says of its members.
//
// For showing to people: it is read plainly and on its own, so that what an archive says can be
// told from what the importer makes of it. Any thread.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// A member as its central record describes it.
struct ListedMember {
    std::string name;
    std::uint16_t method = 0;  ///< 0 stored, 8 deflated
    std::uint16_t flags = 0;
    std::uint32_t packedSize = 0;
    std::uint32_t size = 0;
    std::uint32_t checksum = 0;  ///< the CRC-32 of the contents

    [[nodiscard]] bool isFolder() const { return name.ends_with('/'); }
};

/// An archive's end record and members.
struct ArchiveListing {
    std::uint64_t endRecord = 0;  ///< where it stands
    std::uint64_t directoryEnd = 0;
    std::uint16_t declaredCount = 0;
    std::vector<ListedMember> members;
    std::string damage;  ///< why fewer members were listed than are declared, empty if none
};

/// Returns the listing; a Fault when the archive has no end record in its last 22 bytes or its
/// directory does not lie inside of it.
platform::Result<ArchiveListing> listArchive(const platform::Data& archive);

/// Does the same for the file at `path`, of which only the directory is read.
platform::Result<ArchiveListing> listArchiveFile(const std::string& path);

/// Returns a Fault, which names it, when an empty file is listed: readers of the form that is
/// written here, which lists none, don't get past it.
platform::Outcome refuseEmptyFiles(const ArchiveListing& listing);

/// Returns the method's name, "method 12" for one that is not known here.
[[nodiscard]] std::string methodName(std::uint16_t method);

}  // namespace pvdoc
