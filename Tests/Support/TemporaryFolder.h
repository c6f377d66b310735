// A folder of its own for a test, gone with all it holds at the end.

#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace test {

class TemporaryFolder {
public:
    TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "parlavox-test-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no temporary folder: " + path_);
        }
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string path(std::string_view name) const {
        return path_ + "/" + std::string(name);
    }

    /// Writes a file, with the folders on the way to it, and returns its path.
    std::string write(std::string_view name, std::string_view contents) const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << contents;
        return path(name);
    }

    /// The contents of a file; empty when there is none.
    [[nodiscard]] std::string read(std::string_view name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// How many items the folder itself holds.
    [[nodiscard]] std::ptrdiff_t count() const {
        return std::distance(std::filesystem::directory_iterator(path_), {});
    }

    /// The names of the items that the folder itself holds.
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_)) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

private:
    std::string path_;
};

}  // namespace test
