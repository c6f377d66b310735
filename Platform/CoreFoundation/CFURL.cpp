#include "Platform/CoreFoundation/CFURL.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <system_error>

#include "Platform/CoreFoundation/String.h"
#include "Platform/CoreFoundation/URL.h"

namespace platform::cf {

const URL* URL::ofPath(std::string_view path, IsFolder isFolder) {
    if (path.empty() || path.find('\0') != std::string_view::npos) {
        return nullptr;
    }
    if (path.ends_with('/')) {
        isFolder = IsFolder::Yes;
    }
    while (path.size() > 1 && path.ends_with('/')) {
        path.remove_suffix(1);
    }
    std::string base;
    if (!path.starts_with('/')) {
        std::error_code error;
        base = std::filesystem::current_path(error).string();
    }
    return new URL(std::move(base), std::string(path), isFolder);
}

std::string URL::absolutePath() const {
    if (base_.empty()) {
        return path_;
    }
    return base_.ends_with('/') ? base_ + path_ : base_ + '/' + path_;
}

bool URL::isEqual(const Object& other) const noexcept {
    const auto& url = static_cast<const URL&>(other);
    return isFolder_ == url.isFolder_ && base_ == url.base_ && path_ == url.path_;
}

CFHashCode URL::hash() const noexcept {
    return std::hash<std::string>()(path_);
}

namespace {

/// Writes the path and a NUL to a buffer of `size` bytes, if it fits.
bool writePath(const std::string& path, UInt8* buffer, CFIndex size) noexcept {
    if (buffer == nullptr || size < 0 || static_cast<std::size_t>(size) <= path.size()) {
        return false;
    }
    *std::copy(path.begin(), path.end(), buffer) = 0;
    return true;
}

}  // namespace
}  // namespace platform::cf

using platform::cf::IsFolder;
using platform::cf::objectAs;
using platform::cf::orEnd;
using platform::cf::orNull;
using platform::cf::String;
using platform::cf::TypeID;
using platform::cf::URL;
using platform::cf::utf8Of;
using platform::cf::writePath;

extern "C" {

CFTypeID CFURLGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::URL);
}

CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef, const UInt8* buffer,
                                                 CFIndex bufLen, Boolean isDirectory) {
    if (buffer == nullptr || bufLen < 0) {
        return nullptr;
    }
    const std::string_view path(reinterpret_cast<const char*>(buffer),
                                static_cast<std::size_t>(bufLen));
    return orNull(
        [&] { return refOf(URL::ofPath(path, isDirectory ? IsFolder::Yes : IsFolder::No)); });
}

CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef, CFStringRef filePath,
                                       CFURLPathStyle pathStyle, Boolean isDirectory) {
    if (pathStyle != kCFURLPOSIXPathStyle) {
        return nullptr;
    }
    return orNull([&]() -> CFURLRef {
        const std::optional<std::string> path = utf8Of(filePath);
        if (!path) {
            return nullptr;
        }
        return refOf(URL::ofPath(*path, isDirectory ? IsFolder::Yes : IsFolder::No));
    });
}

Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolveAgainstBase, UInt8* buffer,
                                         CFIndex maxBufLen) {
    const auto& place = objectAs<URL>(url, "CFURLGetFileSystemRepresentation");
    return orEnd([&] {
        return writePath(resolveAgainstBase ? place.absolutePath() : place.path(), buffer,
                         maxBufLen);
    });
}

CFStringRef CFURLCopyFileSystemPath(CFURLRef anURL, CFURLPathStyle pathStyle) {
    const auto& place = objectAs<URL>(anURL, "CFURLCopyFileSystemPath");
    if (pathStyle != kCFURLPOSIXPathStyle) {
        return nullptr;
    }
    return orNull([&] { return refOf(String::ofUtf8(place.path())); });
}

}  // extern "C"
