#include "Sources/CocoaExtensions/Zip/ZipFileWrapper.h"

#include <utility>

#include "Platform/Foundation/FileManager.h"

namespace parlavox {

using platform::Data;
using platform::FileManager;

std::shared_ptr<ZipFileWrapper> ZipFileWrapper::initWithPath(std::optional<std::string> path) {
    auto wrapper = std::make_shared<ZipFileWrapper>(Creation());
    wrapper->initRegular();
    wrapper->filePath_ = std::move(path);
    return wrapper;
}

ZipFileWrapper::~ZipFileWrapper() {
    if (filePath_) {
        FileManager::defaultManager().removeFileAtPath(*filePath_);
    }
}

std::optional<Data> ZipFileWrapper::regularFileContents() const {
    return filePath_ ? FileManager::defaultManager().contentsAtPath(*filePath_)
                     : FileWrapper::regularFileContents();
}

std::optional<std::string> ZipFileWrapper::filename() const {
    const auto name = FileWrapper::filename();
    return name ? name : preferredFilename();
}

bool ZipFileWrapper::writeToFile(const std::string& path, platform::Atomically atomically,
                                 platform::UpdateFilenames) {
    const auto contents = regularFileContents();
    return contents && FileWrapper::initRegularFileWithContents(*contents)->writeToFile(
                           path, atomically, platform::UpdateFilenames::No);
}

}  // namespace parlavox
