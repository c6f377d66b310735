// Where tests find the files they read.

#pragma once

#include <filesystem>
#include <string_view>

namespace test {

/// The path of a file below Tests/Data.
inline std::filesystem::path dataPath(std::string_view name) {
    return std::filesystem::path(PV_TEST_DATA) / name;
}

}  // namespace test
