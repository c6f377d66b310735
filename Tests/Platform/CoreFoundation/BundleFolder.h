// A folder in which a test builds bundles around the test plug-in.

#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "Platform/CoreFoundation/CoreFoundation.h"
#include "Tests/Platform/CoreFoundation/Ref.h"
#include "Tests/Platform/CoreFoundation/TestPlugIn.h"

namespace test {

/// The text of an Info.plist with the test plug-in's factory, around `more` entries.
inline std::string plugInInfo(std::string_view more = "",
                              std::string_view function = "TestPlugInFactory") {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>"
           "<key>CFBundleIdentifier</key><string>test.plugin</string>" +
           std::string(more) +
           "<key>CFPlugInDynamicRegistration</key><string>NO</string>"
           "<key>CFPlugInFactories</key><dict><key>" TEST_PLUGIN_FACTORY "</key><string>" +
           std::string(function) +
           "</string></dict><key>CFPlugInTypes</key><dict><key>" TEST_PLUGIN_TYPE
           "</key><array><string>" TEST_PLUGIN_FACTORY "</string></array></dict></dict></plist>\n";
}

class BundleFolder {
public:
    BundleFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "bundles.XXXXXX").string();
        root_ = mkdtemp(pattern.data());
    }
    ~BundleFolder() { std::filesystem::remove_all(root_); }
    BundleFolder(const BundleFolder&) = delete;
    BundleFolder& operator=(const BundleFolder&) = delete;

    [[nodiscard]] std::string path(std::string_view name) const { return (root_ / name).string(); }

    void write(std::string_view name, std::string_view content) const {
        makeParent(name);
        std::ofstream(root_ / name, std::ios::binary) << content;
    }
    void putPlugIn(std::string_view name) const {
        makeParent(name);
        std::filesystem::copy_file(PV_TEST_PLUGIN, root_ / name);
    }
    void link(std::string_view name, std::string_view target) const {
        makeParent(name);
        std::filesystem::create_symlink(target, root_ / name);
    }

    /// Writes a bundle of the recommended layout with the test plug-in as its executable.
    void makePlugIn(std::string_view name, const std::string& info = plugInInfo()) const {
        const std::string bundle(name);
        write(bundle + "/Contents/Info.plist", info);
        putPlugIn(bundle + "/Contents/Linux/" + std::filesystem::path(bundle).stem().string());
    }

    [[nodiscard]] Ref<CFPlugInRef> open(std::string_view name) const {
        return own(CFPlugInCreate(nullptr, makeURL(path(name), true).get()));
    }

private:
    void makeParent(std::string_view name) const {
        std::filesystem::create_directories((root_ / name).parent_path());
    }

    std::filesystem::path root_;
};

/// The path of a place; "(none)" for NULL.
inline std::string pathOf(CFURLRef url) {
    return url == nullptr ? "(none)"
                          : utf8Of(own(CFURLCopyFileSystemPath(url, kCFURLPOSIXPathStyle)).get());
}

}  // namespace test
