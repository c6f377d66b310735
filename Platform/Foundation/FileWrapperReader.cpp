#include "Platform/Foundation/FileWrapperReader.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <memory>
#include <utility>

#include "Platform/Foundation/ErrnoError.h"
#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileContents.h"
#include "Platform/Foundation/FileWrapper.h"

namespace platform {
namespace {

// Each level keeps a folder open and takes room on the stack.
constexpr int kDeepestFolder = 128;

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

int folderNumber(const FileDescriptor& folder) {
    return folder.isOpen() ? folder.number() : AT_FDCWD;
}

}  // namespace

std::optional<FileWrapperReader::Contents> FileWrapperReader::read(const std::string& path) {
    // With a separator behind it, a link would be followed.
    const std::size_t last = path.find_last_not_of('/');
    path_ = last == std::string::npos ? path : path.substr(0, last + 1);
    depth_ = 0;
    if (path_.find('\0') != std::string::npos) {
        return refuse(EINVAL);
    }
    const std::string name = path_;
    return readItem(FileDescriptor(), name);
}

std::optional<FileWrapperReader::Contents> FileWrapperReader::readItem(const FileDescriptor& folder,
                                                                       const std::string& name) {
    struct stat info = {};
    if (::fstatat(folderNumber(folder), name.c_str(), &info, AT_SYMLINK_NOFOLLOW) != 0) {
        return refuse(errno);
    }
    if (S_ISREG(info.st_mode)) {
        const bool isInFolder = depth_ > 0;
        return isInFolder && reading_ == FileReading::WhenAsked ? Contents(UnreadFile{path_})
                                                                : readFile(folder, name);
    }
    if (S_ISDIR(info.st_mode)) {
        return readFolder(folder, name);
    }
    if (S_ISLNK(info.st_mode)) {
        return readLink(folder, name);
    }
    return refuse("is neither file nor folder nor link");
}

std::optional<FileWrapperReader::Contents> FileWrapperReader::readFile(const FileDescriptor& folder,
                                                                       const std::string& name) {
    // Another file may have come in its place since: not through a link, and without waiting.
    const auto file =
        FileDescriptor::openAt(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    struct stat info = {};
    if (!file.isOpen() || ::fstat(file.number(), &info) != 0) {
        return refuse(errno);
    }
    if (!S_ISREG(info.st_mode)) {
        return refuse("changed while it was read");
    }
    auto contents = contentsOfFile(file, static_cast<std::size_t>(info.st_size));
    if (!contents) {
        return refuse(errno);
    }
    return *std::move(contents);
}

std::optional<FileWrapperReader::Contents> FileWrapperReader::readLink(const FileDescriptor& folder,
                                                                       const std::string& name) {
    // No system call makes a longer one.
    std::string destination(4096, '\0');
    const ssize_t size =
        ::readlinkat(folderNumber(folder), name.c_str(), destination.data(), destination.size());
    if (size < 0) {
        return refuse(errno);
    }
    return LinkDestination{destination.substr(0, static_cast<std::size_t>(size))};
}

std::optional<FileWrapperReader::Contents> FileWrapperReader::readFolder(
    const FileDescriptor& folder, const std::string& name) {
    if (depth_ == kDeepestFolder) {
        return refuse("is nested too deep");
    }
    const auto inner = FileDescriptor::openAt(folder, name, O_RDONLY | O_NOFOLLOW | O_DIRECTORY);
    if (!inner.isOpen()) {
        return refuse(errno);
    }
    const auto names = namesInFolder(inner);
    if (!names) {
        return std::nullopt;
    }
    ++depth_;
    std::vector<FileWrapperEntry> children;
    children.reserve(names->size());
    for (const std::string& child : *names) {
        auto entry = readChild(inner, child);
        if (!entry) {
            return std::nullopt;
        }
        children.push_back(*std::move(entry));
    }
    --depth_;
    return children;
}

std::optional<FileWrapperEntry> FileWrapperReader::readChild(const FileDescriptor& folder,
                                                             const std::string& name) {
    const std::size_t parent = path_.size();
    path_ += '/';
    path_ += name;
    auto contents = readItem(folder, name);
    if (!contents) {
        return std::nullopt;
    }
    path_.resize(parent);
    auto child = FileWrapper::initWithContents(*std::move(contents));
    child->setFilename(name);
    child->setPreferredFilename(name);
    return FileWrapperEntry{name, std::move(child)};
}

std::optional<std::vector<std::string>> FileWrapperReader::namesInFolder(
    const FileDescriptor& folder) {
    FileDescriptor listed = FileDescriptor::openAt(folder, ".", O_RDONLY | O_DIRECTORY);
    const std::unique_ptr<DIR, CloseFolder> entries(listed.isOpen() ? ::fdopendir(listed.number())
                                                                    : nullptr);
    if (entries == nullptr) {
        return refuse(errno);
    }
    // It is closed with the list from here on.
    (void)listed.release();
    std::vector<std::string> names;
    errno = 0;
    while (const dirent* entry = ::readdir(entries.get())) {
        std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(std::move(name));
        }
        errno = 0;
    }
    if (errno != 0) {
        return refuse(errno);
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::nullopt_t FileWrapperReader::refuse(int errnoValue) {
    Error error = cocoaErrorForErrno(errnoValue, FileAccess::Reading, path_);
    noteFailure(error.description);
    leaveError(error_, std::move(error));
    return std::nullopt;
}

std::nullopt_t FileWrapperReader::refuse(std::string_view reason) {
    Error error{std::string(kCocoaErrorDomain), kFileReadUnknownError,
                path_ + ": " + std::string(reason)};
    noteFailure(error.description);
    leaveError(error_, std::move(error));
    return std::nullopt;
}

}  // namespace platform
