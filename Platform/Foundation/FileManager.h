// What is on the disk: files' attributes and contents, folders made and removed.
//
// Operations answer false or nothing when the system refuses; where that hides a cause, it is noted
// as the thread's failure. Any thread may use a manager at once; its only state is who is asked
// about failures. Code can be tested with managers that fail on cue: FileManagerScope.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/Value.h"

namespace platform {

enum class FileType : std::uint8_t { Regular, Directory, Other };

/// What a file is, how many bytes it has, and when they changed last.
struct FileAttributes {
    FileType type = FileType::Regular;
    std::uint64_t size = 0;
    Date modificationDate;
};

/// Whether missing folders on the way to a new one are made, too.
enum class IntermediateDirectories : bool { No, Yes };

/// Who may do what with a new folder: the bits of chmod(2), less those that the process masks.
using Permissions = std::uint32_t;

inline constexpr Permissions kPermissionsForAll = 0777;
inline constexpr Permissions kPermissionsForOwner = 0700;

class FileManager;

/// Asked when an item of many can't be copied or removed.
class FileManagerDelegate {
public:
    virtual ~FileManagerDelegate() = default;

    /// Whether to go on with the other items, as if this one were done.
    ///
    /// Selector: fileManager:shouldProceedAfterError:
    [[nodiscard]] virtual bool fileManagerShouldProceedAfterError(const FileManager& fileManager,
                                                                  const Error& error) = 0;
};

/// The operating system's files. Relative paths count from the working folder.
class FileManager {
public:
    constexpr FileManager() = default;
    constexpr virtual ~FileManager() {}

    /// The manager that all share: that of the real disk, or what a FileManagerScope of this
    /// thread puts in its place.
    ///
    /// Selector: defaultManager
    [[nodiscard]] static const FileManager& defaultManager();

    /// Makes `delegate` the one that is asked about failures, for everybody in the process; it is
    /// not kept alive. Without one, the first failure ends a copy or removal.
    ///
    /// Selector: setDelegate:
    void setDelegate(std::weak_ptr<FileManagerDelegate> delegate) const;

    /// Selector: delegate
    [[nodiscard]] std::shared_ptr<FileManagerDelegate> delegate() const;

    /// Returns the attributes of the item at `path`, or of what a symbolic link there leads to.
    /// Nothing when there is none, or when the link leads nowhere.
    ///
    /// Selector: attributesOfItemAtPath:
    [[nodiscard]] virtual std::optional<FileAttributes> attributesOfItemAtPath(
        const std::string& path) const;

    /// Whether there is an item at `path`; false for a symbolic link that leads nowhere.
    ///
    /// Selector: fileExistsAtPath:
    [[nodiscard]] virtual bool fileExistsAtPath(const std::string& path) const;

    /// Selector: isReadableFileAtPath:
    [[nodiscard]] virtual bool isReadableFileAtPath(const std::string& path) const;

    /// Returns the bytes of the regular file at `path`, as many as there are, whatever its size
    /// said. Nothing when it cannot be read or is no regular file: a device may have no end.
    ///
    /// Selector: contentsAtPath:
    [[nodiscard]] virtual std::optional<Data> contentsAtPath(const std::string& path) const;

    /// Makes the folder `path`, for everybody, and returns whether it is there now as asked:
    /// without intermediate folders it must not have been there before.
    ///
    /// Selector: createDirectoryAtPath:withIntermediateDirectories:
    bool createDirectoryAtPath(const std::string& path,
                               IntermediateDirectories withIntermediateDirectories) const {
        return createDirectoryAtPath(path, withIntermediateDirectories, kPermissionsForAll);
    }

    /// Does the same with `permissions` for each folder that it makes; one that is there keeps its
    /// own.
    ///
    /// Selector: createDirectoryAtPath:withIntermediateDirectories:permissions:
    virtual bool createDirectoryAtPath(const std::string& path,
                                       IntermediateDirectories withIntermediateDirectories,
                                       Permissions permissions) const;

    /// Copies the item at `path` to `toPath`, where nothing may be yet: a folder with all it holds,
    /// a symbolic link as a link, files with their permissions. Returns whether all could be
    /// copied, or the delegate wanted to go on; what was copied before a failure stays.
    ///
    /// Selector: copyItemAtPath:toPath:
    virtual bool copyItemAtPath(const std::string& path, const std::string& toPath) const;

    /// Removes the item at `path`, a folder with all it holds; a symbolic link goes, not what it
    /// leads to. Returns whether all of it could be removed, or the delegate wanted to go on; false
    /// when there is none.
    ///
    /// Selector: removeItemAtPath:
    virtual bool removeItemAtPath(const std::string& path) const;

    /// Removes the file at `path`, never a folder; a symbolic link goes, not what it leads to.
    /// Returns whether it went, and notes no failure: for destructors.
    virtual bool removeFileAtPath(const std::string& path) const noexcept;

    /// Returns `path` with all symbolic links on it followed, or as it is when they lead nowhere.
    ///
    /// Selector: stringByResolvingSymlinksInPath:
    [[nodiscard]] virtual std::string stringByResolvingSymlinksInPath(
        const std::string& path) const;

    /// Returns the folder for temporary files: what the environment names as TMPDIR now, when that
    /// is an absolute path, else /tmp.
    ///
    /// Selector: temporaryDirectory
    [[nodiscard]] virtual std::string temporaryDirectory() const;

private:
    [[nodiscard]] bool shouldProceedAfterError(const Error& error) const;
    [[nodiscard]] bool removeTree(const std::string& path) const;
    [[nodiscard]] bool copyTree(const std::string& path, const std::string& toPath) const;
    [[nodiscard]] bool copyFolder(const std::string& path, const std::string& toPath) const;
};

/// While it lives, `manager` is the default one on the thread that made it. It is borrowed and must
/// outlive the scope.
class FileManagerScope {
public:
    explicit FileManagerScope(const FileManager& manager);
    ~FileManagerScope();
    FileManagerScope(const FileManagerScope&) = delete;
    FileManagerScope& operator=(const FileManagerScope&) = delete;

private:
    const FileManager* outer_;
};

}  // namespace platform
