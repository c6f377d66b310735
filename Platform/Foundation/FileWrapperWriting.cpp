// The part of FileWrapper that writes to the disk.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "Platform/Foundation/ErrnoError.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/StagedItem.h"

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
    StagedItem staged(path);
    return (staged.isMade() || refuse(errno, path)) &&
           writeInPlace(staged.path(), updateFilenames) &&
           (staged.putInPlace() || refuse(errno, path));
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
