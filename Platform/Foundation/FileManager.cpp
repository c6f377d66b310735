#include "Platform/Foundation/FileManager.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <utility>

#include "Platform/Foundation/ErrnoError.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileContents.h"
#include "Platform/Foundation/FileDescriptor.h"

namespace platform {
namespace {

// Literal and without a destructor to run, so it needs no exit hook.
constexpr FileManager kDiskManager;

thread_local const FileManager* threadsManager = nullptr;

// What the reference date, 2001-01-01, is in the system's seconds.
constexpr std::int64_t kReferenceDate = 978'307'200;

bool holdsNul(const std::string& path) {
    return path.find('\0') != std::string::npos;
}

bool refuse(int errnoValue, FileAccess access, const std::string& path) {
    noteFailure(cocoaErrorForErrno(errnoValue, access, path).description);
    return false;
}

FileType typeOfMode(mode_t mode) {
    if (S_ISREG(mode)) {
        return FileType::Regular;
    }
    return S_ISDIR(mode) ? FileType::Directory : FileType::Other;
}

bool isDirectory(const std::string& path) {
    struct stat info = {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

// Another program may make the same folder meanwhile, which is as good.
bool makeMissingDirectory(const std::string& path, Permissions permissions) {
    if (::mkdir(path.c_str(), permissions) == 0) {
        return true;
    }
    const int cause = errno;
    return isDirectory(path) || refuse(cause, FileAccess::Writing, path);
}

bool makeDirectories(const std::string& path, Permissions permissions) {
    for (std::size_t end = path.find('/', 1); end != std::string::npos;
         end = path.find('/', end + 1)) {
        if (!makeMissingDirectory(path.substr(0, end), permissions)) {
            return false;
        }
    }
    return makeMissingDirectory(path, permissions);
}

}  // namespace

const FileManager& FileManager::defaultManager() {
    return threadsManager != nullptr ? *threadsManager : kDiskManager;
}

FileManagerScope::FileManagerScope(const FileManager& manager)
    : outer_(std::exchange(threadsManager, &manager)) {
}

FileManagerScope::~FileManagerScope() {
    threadsManager = outer_;
}

std::optional<FileAttributes> FileManager::attributesOfItemAtPath(const std::string& path) const {
    struct stat info = {};
    if (holdsNul(path) || ::stat(path.c_str(), &info) != 0) {
        return std::nullopt;
    }
    const double seconds = static_cast<double>(info.st_mtim.tv_sec - kReferenceDate) +
                           static_cast<double>(info.st_mtim.tv_nsec) / 1e9;
    return FileAttributes{typeOfMode(info.st_mode), static_cast<std::uint64_t>(info.st_size),
                          Date{seconds}};
}

bool FileManager::fileExistsAtPath(const std::string& path) const {
    return attributesOfItemAtPath(path).has_value();
}

bool FileManager::isReadableFileAtPath(const std::string& path) const {
    return !holdsNul(path) && ::access(path.c_str(), R_OK) == 0;
}

std::optional<Data> FileManager::contentsAtPath(const std::string& path) const {
    // Opening a pipe would wait for its other end, were it not for O_NONBLOCK.
    const FileDescriptor file = FileDescriptor::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
    struct stat info = {};
    if (!file.isOpen() || ::fstat(file.number(), &info) != 0) {
        refuse(errno, FileAccess::Reading, path);
        return std::nullopt;
    }
    if (!S_ISREG(info.st_mode)) {
        refuse(S_ISDIR(info.st_mode) ? EISDIR : EINVAL, FileAccess::Reading, path);
        return std::nullopt;
    }
    auto contents = contentsOfFile(file, static_cast<std::size_t>(info.st_size));
    if (!contents) {
        refuse(errno, FileAccess::Reading, path);
    }
    return contents;
}

bool FileManager::createDirectoryAtPath(const std::string& path,
                                        IntermediateDirectories withIntermediateDirectories,
                                        Permissions permissions) const {
    if (holdsNul(path)) {
        return refuse(EINVAL, FileAccess::Writing, path);
    }
    if (withIntermediateDirectories == IntermediateDirectories::Yes) {
        return makeDirectories(path, permissions);
    }
    return ::mkdir(path.c_str(), permissions) == 0 || refuse(errno, FileAccess::Writing, path);
}

bool FileManager::removeFileAtPath(const std::string& path) const noexcept {
    return !holdsNul(path) && ::unlink(path.c_str()) == 0;
}

std::string FileManager::stringByResolvingSymlinksInPath(const std::string& path) const {
    if (path.find('\0') != std::string::npos) {
        return path;
    }
    const std::unique_ptr<char, void (*)(void*)> resolved(::realpath(path.c_str(), nullptr),
                                                          std::free);
    return resolved ? resolved.get() : path;
}

std::string FileManager::temporaryDirectory() const {
    const char* const named = std::getenv("TMPDIR");  // NOLINT(concurrency-mt-unsafe)
    return named != nullptr && named[0] == '/' ? named : "/tmp";
}

}  // namespace platform
