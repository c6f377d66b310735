// Makes a folder of its own the place for temporary files, gone with all it holds at the end.

#pragma once

#include <stdlib.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Tests/Support/TemporaryFolder.h"

namespace test {

/// Names the folder as TMPDIR while it lives. One at a time, made and ended while no other thread
/// reads the environment.
class TemporaryDirectory {
public:
    TemporaryDirectory() { ::setenv("TMPDIR", folder_.path().c_str(), 1); }
    ~TemporaryDirectory() {
        if (before_) {
            ::setenv("TMPDIR", before_->c_str(), 1);
        } else {
            ::unsetenv("TMPDIR");
        }
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] const std::string& path() const { return folder_.path(); }

    /// How many files, not folders, lie in it at any depth.
    [[nodiscard]] std::ptrdiff_t countFiles() const {
        const std::filesystem::recursive_directory_iterator entries(folder_.path());
        return std::count_if(begin(entries), end(entries),
                             [](const auto& entry) { return !entry.is_directory(); });
    }

    /// Removes all files, but no folders, at any depth; returns how many bytes they held.
    std::uintmax_t removeFiles() const {
        std::vector<std::filesystem::path> files;
        std::uintmax_t bytes = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) {
            if (!entry.is_directory()) {
                bytes += entry.file_size();
                files.push_back(entry.path());
            }
        }
        for (const auto& file : files) {
            std::filesystem::remove(file);
        }
        return bytes;
    }

private:
    static std::optional<std::string> valueNow() {
        const char* const value = ::getenv("TMPDIR");
        return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
    }

    TemporaryFolder folder_;
    std::optional<std::string> before_ = valueNow();
};

}  // namespace test
