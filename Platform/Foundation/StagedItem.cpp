#include "Platform/Foundation/StagedItem.h"

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"

namespace platform {
namespace {

/// Gives a new file the permissions of the one that it replaces. Best effort: it is as safe
/// without.
void takePermissions(const std::string& from, const std::string& to) {
    struct stat old = {};
    struct stat fresh = {};
    if (::lstat(from.c_str(), &old) == 0 && S_ISREG(old.st_mode) &&
        ::lstat(to.c_str(), &fresh) == 0 && S_ISREG(fresh.st_mode)) {
        constexpr mode_t kPermissions = 0777;
        (void)::chmod(to.c_str(), old.st_mode & kPermissions);
    }
}

}  // namespace

StagedItem::StagedItem(std::string path)
    : target_(std::move(path)),
      folder_(stringByAppendingPathComponent(stringByDeletingLastPathComponent(target_),
                                             ".write-XXXXXX")),
      isMade_(::mkdtemp(folder_.data()) != nullptr) {
    staged_ = folder_ + "/" + lastPathComponent(target_);
}

StagedItem::~StagedItem() {
    if (isMade_) {
        const int cause = errno;
        FileManager().removeItemAtPath(folder_);
        errno = cause;
    }
}

bool StagedItem::putInPlace() {
    takePermissions(target_, staged_);
    if (::rename(staged_.c_str(), target_.c_str()) == 0) {
        return true;
    }
    if (errno != ENOTEMPTY && errno != EEXIST && errno != EISDIR && errno != ENOTDIR) {
        return false;
    }
    // A full folder is not replaced by renaming, only exchanged, which not every disk can do.
    if (::renameat2(AT_FDCWD, staged_.c_str(), AT_FDCWD, target_.c_str(), RENAME_EXCHANGE) == 0) {
        return true;
    }
    const std::string former = staged_ + "~";
    if (::rename(target_.c_str(), former.c_str()) != 0) {
        return false;
    }
    if (::rename(staged_.c_str(), target_.c_str()) != 0) {
        const int cause = errno;
        (void)::rename(former.c_str(), target_.c_str());
        errno = cause;
        return false;
    }
    return true;
}

}  // namespace platform
