// The part of FileManager that copies and removes items with all that they hold.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>
#include <vector>

#include "Platform/Foundation/ErrnoError.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileManager.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

/// Who is asked about failures. It is never destroyed: files are removed until the very end.
struct DelegateSlot {
    std::mutex mutex;
    std::weak_ptr<FileManagerDelegate> delegate;
};

DelegateSlot& delegateSlot() {
    static auto& slot = *new DelegateSlot;
    return slot;
}

Error notedError(int errnoValue, const std::string& path) {
    Error error = cocoaErrorForErrno(errnoValue, FileAccess::Writing, path);
    noteFailure(error.description);
    return error;
}

/// The path without separators at its end: with them, a link would stand for the folder it leads
/// to.
std::string itemPath(const std::string& path) {
    return path.substr(0, path.find_last_not_of('/') + 1);
}

/// What no item can be called; 0 when the path may be one's.
int errnoForPath(const std::string& path) {
    if (path.find('\0') != std::string::npos) {
        return EINVAL;
    }
    if (path.find_last_not_of('/') == std::string::npos) {
        return path.empty() ? ENOENT : EBUSY;
    }
    return 0;
}

bool copyBytes(const FileDescriptor& from, const FileDescriptor& to) {
    while (true) {
        constexpr std::size_t kMost = std::size_t{1} << 30;
        const ssize_t count =
            ::copy_file_range(from.number(), nullptr, to.number(), nullptr, kMost, 0);
        if (count == 0) {
            return true;
        }
        if (count < 0 && errno != EINTR) {
            break;
        }
    }
    // Not every disk can do that.
    if (errno != EXDEV && errno != EINVAL && errno != ENOSYS && errno != EOPNOTSUPP) {
        return false;
    }
    std::array<std::byte, 65'536> buffer;
    while (true) {
        const std::int64_t count = from.readFully(buffer);
        if (count <= 0) {
            return count == 0;
        }
        const auto bytes = std::span(buffer).first(static_cast<std::size_t>(count));
        const std::int64_t written = to.writeFully(bytes);
        if (written != count) {
            errno = written < 0 ? errno : ENOSPC;
            return false;
        }
    }
}

/// Copies a file; false with errno.
bool copyFile(const std::string& path, const std::string& toPath) {
    const auto from = FileDescriptor::open(path, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    struct stat info = {};
    if (!from.isOpen() || ::fstat(from.number(), &info) != 0) {
        return false;
    }
    constexpr mode_t kPermissions = 0777;
    const auto to = FileDescriptor::open(toPath, O_WRONLY | O_CREAT | O_EXCL, 0600);
    return to.isOpen() && copyBytes(from, to) &&
           ::fchmod(to.number(), info.st_mode & kPermissions) == 0;
}

/// Copies a link; false with errno.
bool copyLink(const std::string& path, const std::string& toPath) {
    std::error_code failure;
    fs::copy_symlink(path, toPath, failure);
    errno = failure.value();
    return !failure;
}

std::string itemIn(const std::string& folder, const std::string& name) {
    std::string path = folder;
    return path.append("/").append(name);
}

/// The names in a folder, as far as they can be read.
std::vector<std::string> namesInFolder(const std::string& path, std::error_code& failure) {
    std::vector<std::string> names;
    fs::directory_iterator item(path, failure);
    for (; !failure && item != fs::directory_iterator(); item.increment(failure)) {
        names.push_back(item->path().filename().string());
    }
    return names;
}

/// Whether `inner` lies in the folder at `path`: such a copy would hold itself.
bool liesIn(const std::string& path, const std::string& inner) {
    std::error_code failure;
    const std::string outer = fs::canonical(path, failure).string();
    const std::string place = fs::weakly_canonical(inner, failure).string();
    return !failure && place.starts_with(outer + "/");
}

}  // namespace

void FileManager::setDelegate(std::weak_ptr<FileManagerDelegate> delegate) const {
    const std::lock_guard lock(delegateSlot().mutex);
    delegateSlot().delegate = std::move(delegate);
}

std::shared_ptr<FileManagerDelegate> FileManager::delegate() const {
    const std::lock_guard lock(delegateSlot().mutex);
    return delegateSlot().delegate.lock();
}

bool FileManager::shouldProceedAfterError(const Error& error) const {
    const auto asked = delegate();
    return asked != nullptr && asked->fileManagerShouldProceedAfterError(*this, error);
}

bool FileManager::removeItemAtPath(const std::string& path) const {
    const int cause = errnoForPath(path);
    return cause == 0 ? removeTree(itemPath(path))
                      : shouldProceedAfterError(notedError(cause, path));
}

bool FileManager::removeTree(const std::string& path) const {
    std::error_code failure;
    const bool isRemoved = fs::remove_all(path, failure) > 0;
    if (isRemoved && !failure) {
        return true;
    }
    if (!shouldProceedAfterError(notedError(failure ? failure.value() : ENOENT, path))) {
        return false;
    }
    // Something below it can't be removed; the rest goes.
    if (fs::symlink_status(path, failure).type() == fs::file_type::directory) {
        for (const std::string& name : namesInFolder(path, failure)) {
            if (!removeTree(itemIn(path, name))) {
                return false;
            }
        }
    }
    return true;
}

bool FileManager::copyItemAtPath(const std::string& path, const std::string& toPath) const {
    for (const std::string& end : {path, toPath}) {
        if (const int cause = errnoForPath(end); cause != 0) {
            return shouldProceedAfterError(notedError(cause, end));
        }
    }
    return copyTree(itemPath(path), itemPath(toPath));
}

bool FileManager::copyTree(const std::string& path, const std::string& toPath) const {
    struct stat info = {};
    if (::lstat(path.c_str(), &info) != 0) {
        return shouldProceedAfterError(notedError(errno, path));
    }
    if (S_ISDIR(info.st_mode)) {
        return copyFolder(path, toPath);
    }
    if (!S_ISREG(info.st_mode) && !S_ISLNK(info.st_mode)) {
        return shouldProceedAfterError(notedError(EINVAL, path));
    }
    const bool isCopied = S_ISLNK(info.st_mode) ? copyLink(path, toPath) : copyFile(path, toPath);
    return isCopied || shouldProceedAfterError(notedError(errno, toPath));
}

bool FileManager::copyFolder(const std::string& path, const std::string& toPath) const {
    if (liesIn(path, toPath)) {
        return shouldProceedAfterError(notedError(EINVAL, toPath));
    }
    if (::mkdir(toPath.c_str(), kPermissionsForAll) != 0) {
        return shouldProceedAfterError(notedError(errno, toPath));
    }
    std::error_code failure;
    for (const std::string& name : namesInFolder(path, failure)) {
        if (!copyTree(itemIn(path, name), itemIn(toPath, name))) {
            return false;
        }
    }
    return !failure || shouldProceedAfterError(notedError(failure.value(), path));
}

}  // namespace platform
