#include "Tools/pvdoc/Package.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Sources/Document/PackageFormat.h"
#include "Sources/Document/PackageHeader.h"
#include "Tools/pvdoc/ArchiveWriting.h"
#include "Tools/pvdoc/FileTree.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

using parlavox::ZipWrapper;
using platform::Data;
using platform::Fault;
using platform::FaultCode;
using platform::FileWrapper;
using platform::FileWrapperEntry;
using platform::Outcome;
using platform::Result;

namespace {

Outcome checkVersion(const std::optional<Data>& contents) {
    const auto damage = [](std::string_view what) {
        return Fault{FaultCode::Malformed, std::string(what)};
    };
    if (!contents) {
        return damage("no contents.plist in the archive");
    }
    const auto header = parlavox::packageHeader(*contents);
    if (!header) {
        return inFile(parlavox::kContentsMember, header.fault());
    }
    const auto version = parlavox::compatibilityVersion(header.value());
    if (!version) {
        return damage("contents.plist: no compatibility version in the header");
    }
    if (*version >= parlavox::kFirstUnknownCompatibilityVersion) {
        return Fault{FaultCode::Unsupported, "needs a newer reader (compatibility version " +
                                                 std::to_string(*version) + ")"};
    }
    return platform::done();
}

}  // namespace

Result<Package> Package::open(const std::string& path) {
    Package package;
    package.path_ = path;
    package.listing_ = PV_TRY(listArchiveFile(path));
    if (!package.listing_.damage.empty()) {
        return Fault{FaultCode::Malformed, package.listing_.damage};
    }
    PV_TRY(refuseEmptyFiles(package.listing_));
    try {
        package.archive_ = ZipWrapper::initWithPath(path);
    } catch (const platform::Exception& exception) {
        return Fault{FaultCode::Malformed, exception.reason()};
    }
    if (package.archive_ == nullptr) {
        return Fault{FaultCode::System, causeOfFailure(path, "can't be read")};
    }
    PV_TRY(checkVersion(package.contentsOf(parlavox::kContentsMember)));
    return package;
}

std::optional<Data> Package::contentsOf(std::string_view name) const {
    const auto member = archive_->fileWrapperForKey(name);
    return member != nullptr && member->isRegularFile() ? member->regularFileContents()
                                                        : std::nullopt;
}

Outcome Package::writeWith(std::string_view name, const std::optional<Data>& contents) const {
    const Outcome sound = check();
    if (!sound) {
        return inFile(path_, sound.fault());
    }
    std::vector<FileWrapperEntry> children = childrenOf(*archive_);
    const auto place =
        std::find_if(children.begin(), children.end(),
                     [&](const FileWrapperEntry& entry) { return entry.key == name; });
    if (!contents) {
        if (place != children.end()) {
            children.erase(place);
        }
    } else if (place != children.end()) {
        place->child = FileWrapper::initRegularFileWithContents(*contents);
    } else {
        children.push_back(
            {std::string(name), FileWrapper::initRegularFileWithContents(*contents)});
    }
    std::set<std::string_view> deflated;
    for (const ListedMember& member : listing_.members) {
        if (member.method != 0 && member.name != name) {
            deflated.insert(member.name);
        }
    }
    return writeArchive(path_, children, [&](const TreeMember& member) {
        return deflated.count(member.name) > 0 ? kUsualLevel : 0;
    });
}

/// Whether each member that is listed can be written again as it is.
Outcome Package::check() const {
    std::map<std::string_view, const FileWrapper*> wrappers;
    const auto members = PV_TRY(membersOfTree(childrenOf(*archive_)));
    for (const TreeMember& member : members) {
        wrappers.emplace(member.name, member.wrapper.get());
    }
    std::set<std::string_view> seen;
    for (const ListedMember& listed : listing_.members) {
        const auto refuse = [&](const char* why) {
            return Fault{FaultCode::Malformed, listed.name + ": " + why};
        };
        const auto found = wrappers.find(listed.name);
        if (found == wrappers.end() || !seen.insert(listed.name).second) {
            return refuse("a member that can't be carried over");
        }
        if (listed.isFolder()) {
            continue;
        }
        const auto summary = summaryOf(*found->second);
        if (!summary || summary.value() != ContentsSummary{listed.size, listed.checksum}) {
            return refuse("is damaged: the contents are not what the directory says");
        }
    }
    return platform::done();
}

}  // namespace pvdoc
