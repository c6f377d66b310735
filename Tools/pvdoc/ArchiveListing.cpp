#include "Tools/pvdoc/ArchiveListing.h"

#include <unistd.h>

#include <functional>
#include <utility>

#include "Platform/Foundation/Buffer.h"
#include "Platform/Foundation/Range.h"
#include "Sources/CocoaExtensions/Zip/ZipRecords.h"
#include "Tools/pvdoc/InputFile.h"

namespace pvdoc {

using parlavox::SFileHeader;
using platform::Buffer;
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
                        header.CompressionMethod,
                        header.GeneralBitFlag,
                        header.DataDescriptor.CompressedSize,
                        header.DataDescriptor.UncompressedSize,
                        header.DataDescriptor.CRC32};
}

/// Reads bytes of an archive.
using Part = std::function<Result<Data>(Range range)>;

Result<ArchiveListing> listParts(std::uint64_t size, const Part& part) {
    if (size < parlavox::kDirectorySize) {
        return Fault{FaultCode::Malformed, "shorter than an end record"};
    }
    ArchiveListing listing;
    listing.endRecord = size - parlavox::kDirectorySize;
    const Data record = PV_TRY(part({listing.endRecord, parlavox::kDirectorySize}));
    const auto end = parlavox::directoryFromBytes(record.bytes());
    if (end.Signature != parlavox::kDirectorySignature) {
        return Fault{FaultCode::Malformed, "no end record in its last 22 bytes"};
    }
    const Range directoryRange{end.DirectoryOffset, end.DirectorySize};
    if (!directoryRange.liesWithin(size)) {
        return Fault{FaultCode::Malformed, "a central directory outside of the file"};
    }
    listing.directoryEnd = directoryRange.location + directoryRange.length;
    listing.declaredCount = end.TotalEntries;
    const Data directory = PV_TRY(part(directoryRange));
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

Result<Data> readPart(const platform::FileDescriptor& file, Range range) {
    Buffer bytes = Buffer::zeroed(range.length);
    if (::lseek(file.number(), static_cast<off_t>(range.location), SEEK_SET) < 0 ||
        file.readFully(bytes.span()) != static_cast<std::int64_t>(range.length)) {
        return Fault{FaultCode::System, "can't be read to its end"};
    }
    return Data::adopt(std::move(bytes));
}

}  // namespace

Result<ArchiveListing> listArchive(const Data& archive) {
    return listParts(archive.size(),
                     [&](Range range) -> Result<Data> { return archive.subdataWithRange(range); });
}

Result<ArchiveListing> listArchiveFile(const std::string& path) {
    const auto file = PV_TRY(openFile(path));
    return listParts(file.size, [&](Range range) { return readPart(file.descriptor, range); });
}

platform::Outcome refuseEmptyFiles(const ArchiveListing& listing) {
    for (const ListedMember& member : listing.members) {
        if (!member.isFolder() && member.size == 0) {
            return Fault{FaultCode::Unsupported,
                         member.name + ": an empty file, which archives of this form don't list"};
        }
    }
    return platform::done();
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
