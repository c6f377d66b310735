// The place of a file.
//
// Immutable value; any thread.

#pragma once

#include <string>
#include <utility>

namespace platform {

/// A file URL. Only its path is kept: the system knows no other kind of place.
class URL {
public:
    /// Returns the URL of the file at `path`, a path of bytes, mostly UTF-8.
    ///
    /// Selector: fileURLWithPath:
    [[nodiscard]] static URL fileURLWithPath(std::string path) { return URL(std::move(path)); }

    [[nodiscard]] const std::string& path() const { return path_; }

    friend bool operator==(const URL&, const URL&) = default;

private:
    explicit URL(std::string path) : path_(std::move(path)) {}

    std::string path_;
};

}  // namespace platform
