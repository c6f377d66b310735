// The class behind CFURLRef: the place of a file. Immutable; any thread.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Platform/CoreFoundation/CFURL.h"
#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {

/// Whether a place is that of a folder.
enum class IsFolder : bool { No, Yes };

class URL final : public PlainObject<URL> {
public:
    static constexpr TypeID kType = TypeID::URL;

    /// Returns a new place, owned by the caller; null for an empty path and one that holds a NUL.
    /// May throw std::bad_alloc.
    [[nodiscard]] static const URL* ofPath(std::string_view path, IsFolder isFolder);

    /// The path as it was given, without a slash at the end.
    [[nodiscard]] const std::string& path() const noexcept { return path_; }

    /// The path from the root.
    [[nodiscard]] std::string absolutePath() const;

    [[nodiscard]] bool isEqual(const Object& other) const noexcept override;
    [[nodiscard]] CFHashCode hash() const noexcept override;

private:
    URL(std::string base, std::string path, IsFolder isFolder)
        : PlainObject(kType), base_(std::move(base)), path_(std::move(path)), isFolder_(isFolder) {}

    // The current folder of the time when a relative path was given; empty for others.
    std::string base_;
    std::string path_;
    IsFolder isFolder_;
};

inline CFURLRef refOf(const URL* url) noexcept {
    return reinterpret_cast<CFURLRef>(url);
}

}  // namespace platform::cf
