// A temporary directory of a test's own, for spooled entries.

#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

#include "Tests/Sources/CocoaExtensions/Zip/ZipWrapperTestPeer.h"
#include "Tests/Support/TemporaryDirectory.h"

namespace parlavox {

/// While it lives, it is the temporary directory, and the container's own folder is not known.
class ZipTestFolder {
public:
    ZipTestFolder() { ZipWrapperTestPeer::forgetTemporaryFolder(); }
    ~ZipTestFolder() { ZipWrapperTestPeer::forgetTemporaryFolder(); }
    ZipTestFolder(const ZipTestFolder&) = delete;
    ZipTestFolder& operator=(const ZipTestFolder&) = delete;

    [[nodiscard]] std::filesystem::path path() const { return directory_.path(); }

    /// The number of files in the container's own folder.
    [[nodiscard]] std::size_t spooledFiles() const {
        const auto folder = ZipWrapper::tempFolderPath();
        const std::filesystem::directory_iterator files(*folder);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

private:
    test::TemporaryDirectory directory_;
};

}  // namespace parlavox
