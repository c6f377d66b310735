// A folder that an archive lists as an entry of its own.
//
// Folders that an archive only implies, as parts of other entries' names, are plain file wrappers.
// One thread at a time, like every file wrapper.

#pragma once

#include <memory>
#include <string>

#include "Platform/Foundation/FileWrapper.h"

namespace parlavox {

/// A directory wrapper made from an archive's entry, without children at first.
class ZipDirectoryWrapper final : public platform::FileWrapper {
public:
    /// Returns an empty folder.
    [[nodiscard]] static std::shared_ptr<ZipDirectoryWrapper> init() {
        auto wrapper = std::make_shared<ZipDirectoryWrapper>(Creation());
        wrapper->initDirectory();
        return wrapper;
    }

    explicit ZipDirectoryWrapper(Creation key) : FileWrapper(key) {}

    /// Makes the folder at `path`, with the permissions of any new one, and lets each child write
    /// itself there under its key, so that spooled files and archives inside save themselves as
    /// they must; the first that fails ends it, as does a key that is no file name. Should this
    /// have become a file, it is written as one; a link is not written.
    ///
    /// Selector: writeToFile:atomically:updateFilenames:
    bool writeToFile(const std::string& path, platform::Atomically atomically,
                     platform::UpdateFilenames updateFilenames) override;
};

}  // namespace parlavox
