// A folder for one test, with a few words to fill it.

#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Makes an empty folder and removes it, with all that is in it, at the end of its life.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "host-XXXXXX").string();
        EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
        path_ = pattern;
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] std::string path() const { return path_; }
    [[nodiscard]] std::string path(std::string_view name) const { return path_ / name; }

    /// Writes a file and returns its path.
    std::string write(std::string_view name, std::string_view content) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << content;
        return path_ / name;
    }

    /// The names of what is in the folder.
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

private:
    std::filesystem::path path_;
};

}  // namespace host
