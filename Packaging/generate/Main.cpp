// Writes the files of the bundle that follow from the type table:
//
//     generate_bundle_files info-plist VERSION FILE
//     generate_bundle_files mime-package FILE
//
// The exit code is 0 when the file is written, 1 when it cannot be, 2 for other arguments.

#include <cstdio>
#include <exception>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "Packaging/generate/InfoPlist.h"
#include "Packaging/generate/MimePackage.h"
#include "Platform/Foundation/PropertyListSerialization.h"

namespace {

using platform::PropertyListFormat;
using platform::PropertyListSerialization;

int writeFile(const char* path, std::string_view content) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    if (!file) {
        std::fprintf(stderr, "generate_bundle_files: cannot write %s\n", path);
        return 1;
    }
    return 0;
}

int writeInfoPlist(std::string_view version, const char* path) {
    const auto bytes = PropertyListSerialization::dataWithPropertyList(
        packaging::infoPlist(version), PropertyListFormat::Xml);
    if (!bytes) {
        std::fprintf(stderr, "generate_bundle_files: %s\n", bytes.fault().detail.c_str());
        return 1;
    }
    return writeFile(path, bytes.value().view());
}

int run(const std::vector<const char*>& arguments) {
    const std::string_view what = arguments.empty() ? "" : arguments.front();
    if (what == "info-plist" && arguments.size() == 3) {
        return writeInfoPlist(arguments[1], arguments[2]);
    }
    if (what == "mime-package" && arguments.size() == 2) {
        return writeFile(arguments[1], packaging::mimePackage());
    }
    std::fputs(
        "usage: generate_bundle_files info-plist VERSION FILE\n"
        "       generate_bundle_files mime-package FILE\n",
        stderr);
    return 2;
}

}  // namespace

int main(int count, char** arguments) {
    try {
        return run({arguments + 1, arguments + count});
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "generate_bundle_files: %s\n", exception.what());
        return 1;
    }
}
