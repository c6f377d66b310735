#include "Tools/pvdoc/ArchiveWriting.h"

#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/Failure.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapperDelegate.h"
#include "Tools/pvdoc/ArchiveListing.h"
#include "Tools/pvdoc/Progress.h"
#include "Tools/pvdoc/Report.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

using parlavox::ZipWrapper;
using platform::Fault;
using platform::FaultCode;
using platform::FileWrapper;
using platform::FileWrapperEntry;
using platform::Outcome;
using platform::Result;

namespace {

/// The directory counts its records in 16 bits.
constexpr std::size_t kMostMembers = std::numeric_limits<std::uint16_t>::max();

struct ExpectedMember {
    TreeMember member;
    ContentsSummary contents;

    [[nodiscard]] bool isListed() const {
        return member.wrapper->isDirectory() || contents.size > 0;
    }
};

using ExpectedMembers = std::vector<ExpectedMember>;

Result<ExpectedMembers> expectedMembers(const std::vector<FileWrapperEntry>& children) {
    ExpectedMembers expected;
    for (TreeMember& member : PV_TRY(membersOfTree(children))) {
        ContentsSummary contents;
        if (!member.wrapper->isDirectory()) {
            const auto summary = summaryOf(*member.wrapper);
            if (!summary) {
                return inFile(member.name, summary.fault());
            }
            contents = summary.value();
        }
        expected.push_back({std::move(member), contents});
    }
    if (expected.size() > kMostMembers) {
        return Fault{FaultCode::Unsupported, counted(expected.size(), "member") +
                                                 ", and an archive lists " +
                                                 std::to_string(kMostMembers) + " at most"};
    }
    return expected;
}

/// Tells the writer the levels, and a person how far it is.
class Packing final : public parlavox::ZipWrapperDelegate {
public:
    Packing(const ExpectedMembers& expected, const LevelOf& levelOf)
        : levelOf_(levelOf),
          progress_("packing", totalOf(expected), Progress::Printing::AtTheEnd,
                    Progress::Unit::Byte) {
        for (const ExpectedMember& member : expected) {
            expected_.emplace(member.member.wrapper.get(), &member);
        }
    }

    std::optional<std::uint32_t> compressLevelForFileWrapper(
        const std::shared_ptr<FileWrapper>& wrapper, const ZipWrapper&) override {
        const ExpectedMember& expected = *expected_.at(wrapper.get());
        progress_.reach(done_);
        done_ += expected.contents.size;
        return expected.contents.size > 0 ? levelOf_(expected.member) : 0;
    }

private:
    static std::uint64_t totalOf(const ExpectedMembers& expected) {
        std::uint64_t total = 0;
        for (const ExpectedMember& member : expected) {
            total += member.contents.size;
        }
        return total;
    }

    const LevelOf& levelOf_;
    std::unordered_map<const FileWrapper*, const ExpectedMember*> expected_;
    std::uint64_t done_ = 0;
    Progress progress_;
};

bool isAsExpected(const ListedMember& listed, const ExpectedMember& expected) {
    return listed.name == expected.member.name && listed.size == expected.contents.size &&
           listed.checksum == expected.contents.checksum;
}

/// Reads the directory of the archive at `path` and compares it with what it must list.
Outcome compareDirectory(const std::string& path, const ExpectedMembers& expected) {
    const ArchiveListing listing = PV_TRY(listArchiveFile(path));
    const auto differ = [](const std::string& what) {
        return Fault{FaultCode::Malformed, "read back, the archive differs: " + what};
    };
    if (!listing.damage.empty() || listing.directoryEnd != listing.endRecord) {
        return differ("its directory is damaged");
    }
    auto listed = listing.members.begin();
    for (const ExpectedMember& member : expected) {
        if (!member.isListed()) {
            continue;
        }
        if (listed == listing.members.end() || !isAsExpected(*listed, member)) {
            return differ(member.member.name);
        }
        ++listed;
    }
    return listed == listing.members.end() ? platform::done() : Outcome(differ(listed->name));
}

Outcome writeAndCompare(const std::string& path, const std::vector<FileWrapperEntry>& children,
                        const LevelOf& levelOf) {
    const ExpectedMembers expected = PV_TRY(expectedMembers(children));
    const auto archive = ZipWrapper::initDirectoryWithFileWrappers(children);
    archive->setDelegate(std::make_shared<Packing>(expected, levelOf));
    platform::clearFailure();
    if (!archive->writeToFile(path, platform::Atomically::No, platform::UpdateFilenames::No)) {
        return Fault{FaultCode::System, causeOfFailure(path, "can't be written")};
    }
    archive->setDelegate(nullptr);
    return compareDirectory(path, expected);
}

}  // namespace

Outcome writeArchive(const std::string& target, const std::vector<FileWrapperEntry>& children,
                     const LevelOf& levelOf) {
    return writeBeside(target, [&](const std::string& path) -> Outcome {
        try {
            return writeAndCompare(path, children, levelOf);
        } catch (const platform::Exception& exception) {
            return Fault{FaultCode::System, exception.reason()};
        }
    });
}

}  // namespace pvdoc
