#include "Tools/pvdoc/FileTree.h"

#include <utility>

#include "Platform/Foundation/Buffer.h"
#include "Platform/Foundation/Checksum.h"
#include "Tools/pvdoc/InputFile.h"

namespace pvdoc {

using platform::Buffer;
using platform::Fault;
using platform::FaultCode;
using platform::FileWrapper;
using platform::FileWrapperEntry;
using platform::Outcome;
using platform::Result;

namespace {

constexpr unsigned kDeepestFolder = 1000;
constexpr std::size_t kPieceSize = std::size_t{256} * 1024;

Outcome addMembers(const std::vector<FileWrapperEntry>& children, const std::string& prefix,
                   unsigned depth, std::vector<TreeMember>& members) {
    if (depth == kDeepestFolder) {
        return Fault{FaultCode::TooDeep, "folders are nested too deep"};
    }
    for (const FileWrapperEntry& entry : children) {
        std::string name = prefix + entry.key;
        if (!entry.child->isDirectory()) {
            members.push_back({std::move(name), entry.child});
            continue;
        }
        name += '/';
        members.push_back({name, entry.child});
        PV_TRY(addMembers(childrenOf(*entry.child), name, depth + 1, members));
    }
    return platform::done();
}

Result<ContentsSummary> summaryOfFile(const std::string& path) {
    const InputFile file = PV_TRY(openFile(path));
    Buffer piece = Buffer::zeroed(kPieceSize);
    ContentsSummary summary;
    while (true) {
        const std::int64_t count = file.descriptor.readFully(piece.span());
        if (count < 0) {
            return Fault{FaultCode::System, "can't be read to its end"};
        }
        if (count == 0) {
            return summary;
        }
        const auto size = static_cast<std::size_t>(count);
        summary.checksum =
            platform::checksumOfBytes(summary.checksum, piece.span().subspan(0, size));
        summary.size += size;
    }
}

}  // namespace

Result<std::vector<TreeMember>> membersOfTree(const std::vector<FileWrapperEntry>& children) {
    std::vector<TreeMember> members;
    PV_TRY(addMembers(children, {}, 0, members));
    return members;
}

std::vector<FileWrapperEntry> childrenOf(const FileWrapper& folder) {
    return {folder.fileWrappers().begin(), folder.fileWrappers().end()};
}

Result<ContentsSummary> summaryOf(const FileWrapper& file) {
    if (const auto path = file.contentFilePath()) {
        return summaryOfFile(*path);
    }
    const auto contents = file.isRegularFile() ? file.regularFileContents() : std::nullopt;
    if (!contents) {
        return Fault{FaultCode::System, "the contents can't be had"};
    }
    return ContentsSummary{contents->size(), platform::checksumOfBytes(0, contents->span())};
}

}  // namespace pvdoc
