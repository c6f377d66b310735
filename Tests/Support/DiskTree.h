// What a folder of the disk holds, to be compared.

#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace test {

/// The contents of all files below `folder` by their paths; folders end in "/" and have none.
inline std::map<std::string, std::string> treeOf(const std::string& folder) {
    std::map<std::string, std::string> tree;
    for (const auto& item : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string name = item.path().string().substr(folder.size() + 1);
        if (item.is_directory()) {
            tree.emplace(name + '/', "");
        } else {
            std::ifstream file(item.path(), std::ios::binary);
            tree.emplace(name, std::string(std::istreambuf_iterator<char>(file), {}));
        }
    }
    return tree;
}

}  // namespace test
