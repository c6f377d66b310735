#include "Platform/CoreFoundation/BundleLayout.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace platform::cf {
namespace {

namespace fs = std::filesystem;

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

bool isFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

/// The folders that may hold the executable, in the order of the search.
std::vector<fs::path> executableFolders(const fs::path& bundle) {
    const fs::path contents = bundle / "Contents";
    if (isFolder(contents)) {
        return {contents / "Linux", contents, bundle};
    }
    std::vector<fs::path> folders = {bundle / "Linux", bundle};
    if (bundle.extension() == ".resources") {
        const fs::path parent = bundle.parent_path();
        if (parent.filename() == "share") {
            folders.push_back(parent.parent_path() / "lib");
        }
        folders.push_back(parent);
    }
    return folders;
}

}  // namespace

std::optional<std::string> findInfoPlist(const std::string& bundlePath) {
    const fs::path bundle(bundlePath);
    for (const char* place : {"Contents/Info.plist", "Resources/Info.plist", "Info.plist"}) {
        if (isFile(bundle / place)) {
            return (bundle / place).string();
        }
    }
    return std::nullopt;
}

std::optional<std::string> findExecutable(const std::string& bundlePath, std::string_view name) {
    if (name.empty() || name.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    const std::string plain(name);
    for (const fs::path& folder : executableFolders(bundlePath)) {
        for (const std::string& file : {plain, "lib" + plain + ".so"}) {
            if (isFile(folder / file)) {
                return (folder / file).string();
            }
        }
    }
    return std::nullopt;
}

std::string nameOfBundle(const std::string& bundlePath) {
    return fs::path(bundlePath).stem().string();
}

std::string plainPath(std::string_view absolutePath) {
    std::string plain;
    while (!absolutePath.empty()) {
        const std::size_t end = std::min(absolutePath.find('/'), absolutePath.size());
        const std::string_view component = absolutePath.substr(0, end);
        if (!component.empty() && component != ".") {
            plain += '/';
            plain += component;
        }
        absolutePath.remove_prefix(std::min(end + 1, absolutePath.size()));
    }
    return plain.empty() ? "/" : plain;
}

}  // namespace platform::cf
