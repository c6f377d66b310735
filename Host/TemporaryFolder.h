// A private folder for the temporary files of one run, and the removal of those that killed runs
// have left behind.
//
// The folder is BASE/pvindex-XXXXXX, for its owner only. A file named "lock" in it is locked by the
// process that made it, and so by nobody once that process has ended, however it did.
// One thread at a time.

#pragma once

#include <cstdint>
#include <string>

#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/Result.h"

namespace host {

/// Makes a folder and removes it, with all that is in it, at the end of its life.
class TemporaryFolder {
public:
    /// The folder that temporary folders are made in: TMPDIR, or /tmp where it is not set.
    [[nodiscard]] static std::string defaultBase();

    /// Makes a new folder in `base`. The Fault's detail is the system's text.
    [[nodiscard]] static platform::Result<TemporaryFolder> make(const std::string& base);

    /// Removes the folders of this form in `base` that belong to this user and to no living run.
    ///
    /// A folder without its lock may be one that is being made; it goes when it is an hour old.
    /// What cannot be removed stays, silently.
    static void removeStale(const std::string& base);

    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder&& other) noexcept;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

    /// Whether the files in the folder and in its folders, no deeper, are larger than `bytes`
    /// together. Each file and folder counts as a block of 4 KiB at least. Stops counting there.
    [[nodiscard]] bool holdsMoreThan(std::uint64_t bytes) const;

    /// Removes all that others have left in the folder. What cannot be removed stays, silently.
    void clear() const;

    /// Gives up this process's part in the lock, for a process that was forked from the owner.
    /// Requires: the owner still lives, and removes the folder.
    void leaveToOwner();

private:
    TemporaryFolder(std::string path, platform::FileDescriptor lock);

    std::string path_;  // empty in one that was moved from
    platform::FileDescriptor lock_;
};

}  // namespace host
