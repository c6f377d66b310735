// The part of FileWrapper that writes to the disk.

#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "Platform/Foundation/ErrnoError.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PathString.h"

namespace platform {
namespace {

bool refuse(int errnoValue, const std::string& path) {
    noteFailure(cocoaErrorForErrno(errnoValue, FileAccess::Writing, path).description);
    return false;
}

bool writeBytes(const Data& contents, const std::string& path) {
    const auto file = FileDescriptor::open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (!file.isOpen()) {
        return refuse(errno, path);
    }
    const std::int64_t count = file.writeFully(contents.span());
    const int cause = count < 0 ? errno : ENOSPC;
    return count == static_cast<std::int64_t>(contents.size()) || refuse(cause, path);
}

bool writeLink(const std::string& destination, const std::string& path) {
    // The system would stop reading at a NUL and make another link.
    if (destination.find('\0') != std::string::npos) {
        return refuse(EINVAL, path);
    }
    return ::symlink(destination.c_str(), path.c_str()) == 0 || refuse(errno, path);
}

/// A new folder beside `path`, gone at the end with all that is left in it.
class StagingFolder {
public:
    explicit StagingFolder(const std::string& path)
        : path_(stringByAppendingPathComponent(stringByDeletingLastPathComponent(path),
                                               ".write-XXXXXX")) {
        isMade_ = ::mkdtemp(path_.data()) != nullptr;
    }
    ~StagingFolder() {
        if (isMade_) {
            FileManager::defaultManager().removeItemAtPath(path_);
        }
    }
    StagingFolder(const StagingFolder&) = delete;
    StagingFolder& operator=(const StagingFolder&) = delete;

    [[nodiscard]] bool isMade() const { return isMade_; }
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_;
    bool isMade_;
};

// Puts `staged` at `path`; what was there ends up in the staging folder.
bool replaceItem(const std::string& staged, const std::string& path) {
    if (::rename(staged.c_str(), path.c_str()) == 0) {
        return true;
    }
    if (errno != ENOTEMPTY && errno != EEXIST && errno != EISDIR && errno != ENOTDIR) {
        return refuse(errno, path);
    }
    // A full folder is not replaced by renaming, only exchanged, which not every disk can do.
    if (::renameat2(AT_FDCWD, staged.c_str(), AT_FDCWD, path.c_str(), RENAME_EXCHANGE) == 0) {
        return true;
    }
    const std::string former = staged + "~";
    if (::rename(path.c_str(), former.c_str()) != 0) {
        return refuse(errno, path);
    }
    if (::rename(staged.c_str(), path.c_str()) != 0) {
        const int cause = errno;
        (void)::rename(former.c_str(), path.c_str());
        return refuse(cause, path);
    }
    return true;
}

}  // namespace

bool FileWrapper::writeToFile(const std::string& path, Atomically atomically,
                              UpdateFilenames updateFilenames) {
    const std::string name = lastPathComponent(path);
    if (!isPathComponent(name) || path.find('\0') != std::string::npos) {
        return refuse(EINVAL, path);
    }
    const std::string target = path.substr(0, path.find_last_not_of('/') + 1);
    const bool isWritten = atomically == Atomically::Yes ? writeBeside(target, updateFilenames)
                                                         : writeInPlace(target, updateFilenames);
    if (isWritten && updateFilenames == UpdateFilenames::Yes) {
        setFilename(name);
    }
    return isWritten;
}

bool FileWrapper::writeBeside(const std::string& path, UpdateFilenames updateFilenames) {
    const StagingFolder staging(path);
    if (!staging.isMade()) {
        return refuse(errno, path);
    }
    const std::string staged = staging.path() + "/" + lastPathComponent(path);
    return writeInPlace(staged, updateFilenames) && replaceItem(staged, path);
}

bool FileWrapper::writeInPlace(const std::string& path, UpdateFilenames updateFilenames) {
    if (isDirectory()) {
        return writeChildren(path, updateFilenames);
    }
    if (isSymbolicLink()) {
        return writeLink(symbolicLinkDestination(), path);
    }
    const std::optional<Data> contents = regularFileContents();
    if (!contents) {
        noteFailure(path + ": the contents cannot be had");
        return false;
    }
    return writeBytes(*contents, path);
}

bool FileWrapper::writeChildren(const std::string& path, UpdateFilenames updateFilenames) {
    if (::mkdir(path.c_str(), 0777) != 0) {
        return refuse(errno, path);
    }
    for (const auto& [key, child] : fileWrappers()) {
        std::string childPath = path;
        childPath.append("/").append(key);
        // A key may come from an archive of a stranger: it must not lead out of its folder.
        if (!isPathComponent(key)) {
            return refuse(EINVAL, childPath);
        }
        if (!child->writeToFile(childPath, Atomically::No, updateFilenames)) {
            return false;
        }
    }
    return true;
}

}  // namespace platform
