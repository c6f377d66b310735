#include "Tools/pvdoc/FolderContents.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/Unicode.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

using platform::Data;
using platform::Fault;
using platform::FaultCode;
using platform::FileWrapper;
using platform::FileWrapperEntry;
using platform::Outcome;
using platform::Result;

namespace {

/// As deep as a folder is read elsewhere.
constexpr unsigned kDeepestFolder = 128;

/// Why no reader would find an item called `name` in an archive; null when one does.
const char* whyNotToBeFound(const std::string& name) {
    if (!platform::utf16FromUtf8(name)) {
        return "a name that is no UTF-8";
    }
    return name.ends_with('\\') ? "a name that readers take for a folder's" : nullptr;
}

/// The names of what the folder at `path` holds, sorted by their bytes.
Result<std::vector<std::string>> namesIn(const std::string& path) {
    std::error_code error;
    std::vector<std::string> names;
    std::filesystem::directory_iterator items(path, error);
    for (; !error && items != std::filesystem::directory_iterator(); items.increment(error)) {
        names.push_back(items->path().filename());
    }
    if (error) {
        return inFile(path, systemFault(error.value()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// Walks a folder.
class Walk {
public:
    explicit Walk(const std::string& leftOut) {
        struct stat status {};
        if (::stat(leftOut.c_str(), &status) == 0) {
            leftOut_ = status;
        }
    }

    Result<std::vector<FileWrapperEntry>> childrenOf(const std::string& path, unsigned depth) {
        if (depth > kDeepestFolder) {
            return Fault{FaultCode::TooDeep, path + ": folders are nested too deep"};
        }
        std::vector<FileWrapperEntry> children;
        for (const std::string& name : PV_TRY(namesIn(path))) {
            std::string childPath = path;
            childPath += path.ends_with('/') ? "" : "/";
            childPath += name;
            if (const char* const reason = whyNotToBeFound(name)) {
                return Fault{FaultCode::Unsupported, childPath + ": " + reason};
            }
            if (auto child = PV_TRY(childAt(childPath, depth))) {
                children.push_back({name, std::move(child)});
            }
        }
        return children;
    }

    std::vector<std::string> emptyFiles;

private:
    /// What is at `path`; null for what is left out.
    Result<std::shared_ptr<FileWrapper>> childAt(const std::string& path, unsigned depth) {
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0) {
            return inFile(path, systemFault(errno));
        }
        if (S_ISDIR(status.st_mode)) {
            return FileWrapper::initDirectoryWithFileWrappers(PV_TRY(childrenOf(path, depth + 1)));
        }
        if (!S_ISREG(status.st_mode)) {
            return Fault{FaultCode::Unsupported, path + ": neither file nor folder"};
        }
        if (leftOut_ && leftOut_->st_dev == status.st_dev && leftOut_->st_ino == status.st_ino) {
            return std::shared_ptr<FileWrapper>();
        }
        if (status.st_size == 0) {
            emptyFiles.push_back(path);
        }
        return std::shared_ptr<FileWrapper>(FileOnDisk::initWithPath(path));
    }

    std::optional<struct stat> leftOut_;
};

}  // namespace

std::shared_ptr<FileOnDisk> FileOnDisk::initWithPath(std::string path) {
    auto file = std::make_shared<FileOnDisk>(Creation());
    file->initRegular();
    file->path_ = std::move(path);
    return file;
}

std::optional<Data> FileOnDisk::regularFileContents() const {
    return platform::FileManager::defaultManager().contentsAtPath(path_);
}

Result<FolderContents> contentsOfFolder(const std::string& path, const std::string& leftOut) {
    Walk walk(leftOut);
    FolderContents contents;
    contents.children = PV_TRY(walk.childrenOf(path, 0));
    contents.emptyFiles = std::move(walk.emptyFiles);
    return contents;
}

}  // namespace pvdoc
