#include "Host/TemporaryFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

namespace host {
namespace {

using platform::FileDescriptor;

using platform::Fault;
using platform::FaultCode;

constexpr std::string_view kPrefix = "pvindex-";
constexpr std::size_t kRandomSize = 6;
constexpr const char* kLock = "lock";
constexpr std::time_t kYoungSeconds = 3600;

bool isOurForm(std::string_view name) {
    return name.size() == kPrefix.size() + kRandomSize && name.starts_with(kPrefix) &&
           std::all_of(name.begin() + kPrefix.size(), name.end(), [](char unit) {
               return (unit >= '0' && unit <= '9') || (unit >= 'A' && unit <= 'Z') ||
                      (unit >= 'a' && unit <= 'z');
           });
}

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

// The entries of a folder, one at a time; none of one that cannot be read.
class Entries {
public:
    explicit Entries(const std::string& path) : folder_(::opendir(path.c_str())) {}
    Entries(const Entries& parent, const char* name) {
        FileDescriptor folder(
            ::openat(parent.descriptor(), name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        folder_.reset(folder.isOpen() ? ::fdopendir(folder.number()) : nullptr);
        if (folder_) {
            static_cast<void>(folder.release());
        }
    }

    // Null at the end.
    const char* next() {
        while (const dirent* entry = folder_ ? ::readdir(folder_.get()) : nullptr) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..") {
                return entry->d_name;
            }
        }
        return nullptr;
    }

    [[nodiscard]] int descriptor() const { return ::dirfd(folder_.get()); }

private:
    std::unique_ptr<DIR, CloseFolder> folder_;
};

// Adds up what entries occupy until that is more than a bound.
class Measure {
public:
    explicit Measure(std::uint64_t bound) : bound_(bound) {}

    [[nodiscard]] bool isExceeded() const { return sum_ > bound_; }

    void add(Entries& entries, bool goesDeeper) {
        while (!isExceeded()) {
            const char* name = entries.next();
            if (name == nullptr) {
                return;
            }
            struct stat status {};
            if (::fstatat(entries.descriptor(), name, &status, AT_SYMLINK_NOFOLLOW) != 0) {
                continue;
            }
            sum_ += std::max(static_cast<std::uint64_t>(status.st_size), kSmallestSize);
            if (goesDeeper && S_ISDIR(status.st_mode)) {
                Entries inside(entries, name);
                add(inside, false);
            }
        }
    }

private:
    static constexpr std::uint64_t kSmallestSize = 4096;

    std::uint64_t bound_;
    std::uint64_t sum_ = 0;
};

void removeTree(const std::string& path) {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
}

// The lock gets its name when it is locked: another run must never find it free.
FileDescriptor makeLock(const std::string& folder) {
    const std::string name = folder + "/" + kLock;
    const std::string unnamed = name + ".new";
    FileDescriptor lock(
        ::open(unnamed.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    if (lock.isOpen() && (::flock(lock.number(), LOCK_EX | LOCK_NB) != 0 ||
                          std::rename(unnamed.c_str(), name.c_str()) != 0)) {
        return {};
    }
    return lock;
}

// The lock of a folder that no living run owns, locked; none for any other.
FileDescriptor takeFreeLock(const FileDescriptor& folder) {
    FileDescriptor lock(
        ::openat(folder.number(), kLock, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status {};
    if (!lock.isOpen() || ::fstat(lock.number(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid() || ::flock(lock.number(), LOCK_EX | LOCK_NB) != 0) {
        return {};
    }
    return lock;
}

bool hasNoLock(const FileDescriptor& folder) {
    struct stat status {};
    return ::fstatat(folder.number(), kLock, &status, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
}

// The folder `name` in `base`, if it is one that a run of this user may have made.
FileDescriptor openCandidate(int base, const char* name, struct stat& status) {
    FileDescriptor folder(::openat(base, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder.isOpen() || ::fstat(folder.number(), &status) != 0 ||
        status.st_uid != ::geteuid() || (status.st_mode & 07777) != 0700) {
        return {};
    }
    return folder;
}

void removeIfStale(const std::string& base, int baseDescriptor, const char* name) {
    struct stat status {};
    const FileDescriptor folder = openCandidate(baseDescriptor, name, status);
    if (!folder.isOpen()) {
        return;
    }
    const FileDescriptor lock = takeFreeLock(folder);
    const bool isOld = std::time(nullptr) - status.st_mtime > kYoungSeconds;
    if (lock.isOpen() || (isOld && hasNoLock(folder))) {
        // Only this user can put another folder in its place, and links are never followed.
        removeTree(base + "/" + name);
    }
}

}  // namespace

std::string TemporaryFolder::defaultBase() {
    const char* named = std::getenv("TMPDIR");
    return named != nullptr && *named != '\0' ? named : "/tmp";
}

platform::Result<TemporaryFolder> TemporaryFolder::make(const std::string& base) {
    std::string path = base + "/" + std::string(kPrefix) + std::string(kRandomSize, 'X');
    if (::mkdtemp(path.data()) == nullptr) {
        return Fault{FaultCode::System, std::strerror(errno)};
    }
    FileDescriptor lock = makeLock(path);
    if (!lock.isOpen()) {
        const Fault fault{FaultCode::System, std::strerror(errno)};
        removeTree(path);
        return fault;
    }
    return TemporaryFolder(std::move(path), std::move(lock));
}

void TemporaryFolder::removeStale(const std::string& base) {
    Entries entries(base);
    while (const char* name = entries.next()) {
        if (isOurForm(name)) {
            removeIfStale(base, entries.descriptor(), name);
        }
    }
}

TemporaryFolder::TemporaryFolder(std::string path, FileDescriptor lock)
    : path_(std::move(path)), lock_(std::move(lock)) {
}

TemporaryFolder::TemporaryFolder(TemporaryFolder&& other) noexcept
    : path_(std::exchange(other.path_, {})), lock_(std::move(other.lock_)) {
}

TemporaryFolder::~TemporaryFolder() {
    if (!path_.empty()) {
        removeTree(path_);
    }
}

bool TemporaryFolder::holdsMoreThan(std::uint64_t bytes) const {
    Measure measure(bytes);
    Entries entries(path_);
    measure.add(entries, true);
    return measure.isExceeded();
}

void TemporaryFolder::clear() const {
    Entries entries(path_);
    while (const char* name = entries.next()) {
        if (std::string_view(name) != kLock) {
            removeTree(path_ + "/" + name);
        }
    }
}

void TemporaryFolder::leaveToOwner() {
    path_.clear();
    lock_.close();
}

}  // namespace host
