// Finds test data: files of this tree, and more of them where the machine has them.
//
// Files whose licence or size keeps them out of the tree lie in the folder that the environment
// variable PARLAVOX_FIXTURES names, in folders of the same names as below Tests/Data.

#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "Tests/Support/TestData.h"

namespace test {

/// The path of a file such as "plist/empty.plist"; nothing when this machine does not have it.
inline std::optional<std::filesystem::path> fixturePath(const std::string& name) {
    std::filesystem::path path = dataPath(name);
    const char* const more = std::getenv("PARLAVOX_FIXTURES");
    if (!std::filesystem::exists(path) && more != nullptr) {
        path = std::filesystem::path(more) / name;
    }
    return std::filesystem::exists(path) ? std::optional(path) : std::nullopt;
}

}  // namespace test
