// Trees of files that go into archives and come out of them.
//
// One thread.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// A file or folder of a tree. The names of members are those of an archive's entries: all folders
/// on the way with a "/" behind each, and behind a folder's own name, too.
struct TreeMember {
    std::string name;
    std::shared_ptr<platform::FileWrapper> wrapper;
};

/// Returns all members below `children`, folders before what they hold, otherwise in order. A Fault
/// when folders are nested deeper than an archive may have them.
platform::Result<std::vector<TreeMember>> membersOfTree(
    const std::vector<platform::FileWrapperEntry>& children);

/// Returns the children of a folder.
[[nodiscard]] std::vector<platform::FileWrapperEntry> childrenOf(
    const platform::FileWrapper& folder);

/// What can be compared with an archive's directory.
struct ContentsSummary {
    std::uint64_t size = 0;
    std::uint32_t checksum = 0;

    friend bool operator==(const ContentsSummary&, const ContentsSummary&) = default;
};

/// Returns the size and checksum of a file's contents, which are read piece by piece where they
/// lie on the disk. A Fault without the file's name when they can't be had.
platform::Result<ContentsSummary> summaryOf(const platform::FileWrapper& file);

}  // namespace pvdoc
