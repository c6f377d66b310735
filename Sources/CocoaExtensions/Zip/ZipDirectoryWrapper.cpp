#include "Sources/CocoaExtensions/Zip/ZipDirectoryWrapper.h"

#include <algorithm>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"

namespace parlavox {

using platform::Atomically;
using platform::FileManager;
using platform::UpdateFilenames;

bool ZipDirectoryWrapper::writeToFile(const std::string& path, Atomically atomically,
                                      UpdateFilenames updateFilenames) {
    if (!isDirectory()) {
        return isRegularFile() && FileWrapper::writeToFile(path, atomically, updateFilenames);
    }
    if (!FileManager::defaultManager().createDirectoryAtPath(
            path, platform::IntermediateDirectories::No)) {
        return false;
    }
    const auto& children = fileWrappers();
    return std::all_of(children.begin(), children.end(), [&](const auto& entry) {
        // A key may come from an archive of a stranger: it must not lead out of the folder.
        if (!platform::isPathComponent(entry.key)) {
            platform::noteFailure(path + ": holds an item that no file can be called");
            return false;
        }
        return entry.child->writeToFile(platform::stringByAppendingPathComponent(path, entry.key),
                                        atomically, updateFilenames);
    });
}

}  // namespace parlavox
