#include "Tools/pvdoc/ArchiveListing.h"

#include <utility>

#include "Platform/Foundation/Range.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"

namespace pvdoc {

using parlavox::SFileHeader;
using platform::Data;
using platform::Fault;
using platform::FaultCode;
using platform::Range;
using platform::Result;

namespace {

/// The record at `position` of the directory, which it moves behind it.
Result<ListedMember> readRecord(const Data& directory, std::uint64_t& position) {
    const auto damage = [&](const char* what) {
        return Fault{FaultCode::Malformed,
                     what + (" at " + std::to_string(position)) + " of the directory"};
    };
    if (!Range{position, parlavox::kFileHeaderSize}.liesWithin(directory.size())) {
        return damage("no whole record");
    }
    SFileHeader header{};
    FLReadSFileHeader(&header, directory.bytes() + position);
    if (header.Signature != parlavox::kFileHeaderSignature) {
        return damage("no record");
    }
    const Range name{position + parlavox::kFileHeaderSize, header.FilenameLength};
    if (!name.liesWithin(directory.size())) {
        return damage("a name that reaches beyond the end");
    }
    position = name.location + name.length + header.ExtraFieldLength + header.CommentLength;
    return ListedMember{std::string(directory.subdataWithRange(name).view()),
                        header.CompressionMethod, header.DataDescriptor.CompressedSize,
                        header.DataDescriptor.UncompressedSize, header.DataDescriptor.CRC32};
}

}  // namespace

Result<ArchiveListing> listArchive(const Data& archive) {
    if (archive.size() < parlavox::kDirectorySize) {
        return Fault{FaultCode::Malformed, "shorter than an end record"};
    }
    ArchiveListing listing;
    listing.endRecord = archive.size() - parlavox::kDirectorySize;
    const auto end = parlavox::directoryFromBytes(archive.bytes() + listing.endRecord);
    if (end.Signature != parlavox::kDirectorySignature) {
        return Fault{FaultCode::Malformed, "no end record in its last 22 bytes"};
    }
    const Range directoryRange{end.DirectoryOffset, end.DirectorySize};
    if (!directoryRange.liesWithin(archive.size())) {
        return Fault{FaultCode::Malformed, "a central directory outside of the file"};
    }
    listing.declaredCount = end.TotalEntries;
    const Data directory = archive.subdataWithRange(directoryRange);
    std::uint64_t position = 0;
    while (listing.members.size() < listing.declaredCount) {
        auto member = readRecord(directory, position);
        if (!member) {
            listing.damage = member.fault().detail;
            break;
        }
        listing.members.push_back(std::move(member).value());
    }
    return listing;
}

std::string methodName(std::uint16_t method) {
    switch (method) {
        case 0:
            return "stored";
        case 8:
            return "deflated";
        default:
            return "method " + std::to_string(method);
    }
}

}  // namespace pvdoc
