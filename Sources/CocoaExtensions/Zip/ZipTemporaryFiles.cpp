// The names of temporary files, and the folder for spooled entries.

#include <algorithm>
#include <array>
#include <atomic>
#include <string>

#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/UniqueIdentifier.h"
#include "Sources/CocoaExtensions/Zip/ZipTemporaryFolder.h"
#include "Sources/CocoaExtensions/Zip/ZipWrapper.h"

namespace parlavox {

using platform::FileManager;

std::string ZipWrapper::generatedUID() {
    return platform::uniqueIdentifier();
}

std::optional<std::string> ZipWrapper::tempFolderPath() {
    if (const char* const cached = ZipTemporaryFolder::cachedPath()) {
        return cached;
    }
    const FileManager& manager = FileManager::defaultManager();
    const std::string path =
        platform::stringByAppendingPathComponent(manager.temporaryDirectory(), generatedUID());
    // The system's folder is everybody's here; where this container comes from, each user has a
    // temporary directory that others cannot look into. So the folder itself keeps others out.
    if (!manager.createDirectoryAtPath(path, platform::IntermediateDirectories::No,
                                       platform::kPermissionsForOwner)) {
        return std::nullopt;
    }
    ZipTemporaryFolder::publish(path);
    return path;
}

std::optional<std::string> ZipWrapper::generatedTempFilePathWithExtension(
    const std::optional<std::string>& extension) {
    const auto folder = tempFolderPath();
    if (!folder) {
        return std::nullopt;
    }
    std::string path = platform::stringByAppendingPathComponent(*folder, generatedUID());
    return extension ? platform::stringByAppendingPathExtension(path, *extension)
                     : std::optional<std::string>(std::move(path));
}

}  // namespace parlavox
