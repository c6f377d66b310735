#include "Tools/pvdoc/Unzip.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/StagedItem.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/FileTree.h"
#include "Tools/pvdoc/Progress.h"

namespace pvdoc {

using parlavox::ZipWrapper;
using platform::Fault;
using platform::FaultCode;
using platform::FileManager;
using platform::Outcome;
using platform::Result;

namespace {

constexpr std::uint16_t kStored = 0;
constexpr std::uint16_t kDeflated = 8;
constexpr std::uint16_t kEncrypted = 1;

using Members = std::map<std::string_view, const ListedMember*>;

bool staysInFolder(std::string_view name) {
    if (name.ends_with('/')) {
        name.remove_suffix(1);
    }
    while (true) {
        const std::size_t end = name.find('/');
        if (!platform::isPathComponent(name.substr(0, end))) {
            return false;
        }
        if (end == std::string_view::npos) {
            return true;
        }
        name.remove_prefix(end + 1);
    }
}

/// The members by their names, none of which may be dangerous or strange.
Result<Members> checkedMembers(const ArchiveListing& listing) {
    if (!listing.damage.empty()) {
        return Fault{FaultCode::Malformed, "is damaged: " + listing.damage};
    }
    if (listing.directoryEnd != listing.endRecord) {
        return Fault{FaultCode::Unsupported,
                     "is no archive of this form: its directory does not "
                     "end where its end record begins"};
    }
    PV_TRY(refuseEmptyFiles(listing));
    Members members;
    for (const ListedMember& member : listing.members) {
        const auto refuse = [&](FaultCode code, const std::string& why) {
            return Fault{code, member.name + ": " + why};
        };
        if (!staysInFolder(member.name)) {
            return refuse(FaultCode::Malformed, "a name that leaves the folder; nothing unpacked");
        }
        if ((member.method != kStored && member.method != kDeflated) ||
            (member.flags & kEncrypted) != 0) {
            return refuse(FaultCode::Unsupported, "is neither stored nor deflated");
        }
        if (!members.emplace(member.name, &member).second) {
            return refuse(FaultCode::Malformed, "a name that occurs twice");
        }
    }
    return members;
}

Result<std::shared_ptr<ZipWrapper>> opened(const std::string& path) {
    platform::clearFailure();
    try {
        auto archive = ZipWrapper::initWithPath(path);
        if (archive == nullptr) {
            return Fault{FaultCode::System, causeOfFailure(path, "can't be read")};
        }
        return archive;
    } catch (const platform::Exception& exception) {
        return Fault{FaultCode::Malformed, exception.reason()};
    }
}

/// Writes members to the folder that is being made, after a look at their contents.
class Unpacking {
public:
    Unpacking(const Members& members, std::string folder)
        : members_(members),
          folder_(std::move(folder)),
          progress_("unpacking", totalOf(members), Progress::Printing::AtTheEnd,
                    Progress::Unit::Byte) {}

    Outcome write(const TreeMember& member) {
        const std::string path = folder_ + '/' + member.name;
        if (member.wrapper->isDirectory()) {
            const auto yes = platform::IntermediateDirectories::Yes;
            return FileManager::defaultManager().createDirectoryAtPath(path, yes)
                       ? platform::done()
                       : failed(path, member.name);
        }
        PV_TRY(check(member));
        platform::clearFailure();
        if (!member.wrapper->writeToFile(path, platform::Atomically::No,
                                         platform::UpdateFilenames::No)) {
            return failed(path, member.name);
        }
        ++files_;
        return platform::done();
    }

    /// Whether all that is listed has been written.
    Outcome checkAllWritten() const {
        const auto files = std::count_if(members_.begin(), members_.end(), [](const auto& member) {
            return !member.second->isFolder();
        });
        if (files != files_) {
            return Fault{FaultCode::Malformed, "is damaged: not all members can be read"};
        }
        return platform::done();
    }

private:
    static std::uint64_t totalOf(const Members& members) {
        std::uint64_t total = 0;
        for (const auto& [name, member] : members) {
            total += member->size;
        }
        return total;
    }

    static Outcome failed(const std::string& path, const std::string& name) {
        return Fault{FaultCode::System, name + ": " + causeOfFailure(path, "can't be written")};
    }

    Outcome check(const TreeMember& member) {
        const auto listed = members_.find(member.name);
        const auto summary = summaryOf(*member.wrapper);
        if (listed == members_.end() || !summary ||
            summary.value() != ContentsSummary{listed->second->size, listed->second->checksum}) {
            return Fault{FaultCode::Malformed,
                         member.name + ": is damaged: the contents are not what is listed"};
        }
        done_ += listed->second->size;
        progress_.reach(done_);
        return platform::done();
    }

    const Members& members_;
    const std::string folder_;
    std::ptrdiff_t files_ = 0;
    std::uint64_t done_ = 0;
    Progress progress_;
};

/// Writes all of the archive at `path` to `folder`, which is not there yet.
Outcome unpack(const std::string& path, const std::string& folder) {
    const ArchiveListing listing = PV_TRY(listArchiveFile(path));
    const Members members = PV_TRY(checkedMembers(listing));
    const auto archive = PV_TRY(opened(path));
    const auto tree = PV_TRY(membersOfTree(childrenOf(*archive)));
    if (::mkdir(folder.c_str(), platform::kPermissionsForAll) != 0) {
        return systemFault(errno);
    }
    Unpacking unpacking(members, folder);
    for (const TreeMember& member : tree) {
        PV_TRY(unpacking.write(member));
    }
    return unpacking.checkAllWritten();
}

/// What is at `path`, links not followed; nothing when nothing is there.
std::optional<mode_t> kindOf(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 ? std::optional(status.st_mode & S_IFMT)
                                               : std::nullopt;
}

/// An item of the folder `from`, to be put into the folder `to`.
struct Move {
    std::string from;
    std::string to;
    bool isFolder = false;
};

/// All moves that put what `from` holds between what `to` holds. A Fault when something there is in
/// the way.
Result<std::vector<Move>> movesBetween(const std::string& from, const std::string& to) {
    std::vector<Move> moves;
    for (const auto& item : std::filesystem::recursive_directory_iterator(from)) {
        const std::string path = item.path();
        Move move{path, to + path.substr(from.size()), item.is_directory()};
        const auto there = kindOf(move.to);
        if (there && (move.isFolder ? *there != S_IFDIR : *there == S_IFDIR)) {
            return Fault{FaultCode::System,
                         move.to + ": is in the way; nothing takes a folder's place"};
        }
        moves.push_back(std::move(move));
    }
    return moves;
}

Outcome putBetween(const std::string& from, const std::string& to) {
    for (const Move& move : PV_TRY(movesBetween(from, to))) {
        const bool isPut = move.isFolder
                               ? kindOf(move.to) == S_IFDIR ||
                                     ::mkdir(move.to.c_str(), platform::kPermissionsForAll) == 0
                               : std::rename(move.from.c_str(), move.to.c_str()) == 0;
        if (!isPut) {
            return inFile(move.to, systemFault(errno));
        }
    }
    return platform::done();
}

bool isEmptyFolder(const std::string& path) {
    std::error_code ignored;
    return std::filesystem::is_empty(path, ignored);
}

Outcome unpackBetween(const UnzipOptions& options) {
    if (options.overwrite == Overwrite::No && !isEmptyFolder(options.folder)) {
        return Fault{FaultCode::System, options.folder + ": is not empty; --force puts files " +
                                            "between those that are there"};
    }
    // Inside of the folder, so that files come to their places by renaming.
    const platform::StagedItem staged(options.folder + "/unpacked");
    if (!staged.isMade()) {
        return inFile(options.folder, systemFault(errno));
    }
    const Outcome unpacked = unpack(options.archive, staged.path());
    return unpacked ? putBetween(staged.path(), options.folder)
                    : Outcome(inFile(options.archive, unpacked.fault()));
}

Outcome unpackToNewFolder(const UnzipOptions& options) {
    platform::StagedItem staged(options.folder);
    if (!staged.isMade()) {
        return inFile(options.folder, systemFault(errno));
    }
    const Outcome unpacked = unpack(options.archive, staged.path());
    if (!unpacked) {
        return inFile(options.archive, unpacked.fault());
    }
    return staged.putInPlace() ? platform::done()
                               : Outcome(inFile(options.folder, systemFault(errno)));
}

}  // namespace

Outcome unzip(const UnzipOptions& options) {
    const auto kind = kindOf(options.folder);
    if (!kind) {
        return unpackToNewFolder(options);
    }
    struct stat status {};
    if (::stat(options.folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return Fault{FaultCode::System, options.folder + ": is there already and no folder"};
    }
    return unpackBetween(options);
}

}  // namespace pvdoc
