// A temporary directory of a test's own, for spooled entries.

#pragma once

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "Tests/Sources/CocoaExtensions/Zip/ZipWrapperTestPeer.h"
#include "Tests/Support/TemporaryFolder.h"

namespace parlavox {

/// While it lives, it is the temporary directory, and the container's own folder is not known.
class ZipTestFolder {
public:
    ZipTestFolder() {
        if (const char* const before = std::getenv("TMPDIR")) {
            before_ = before;
        }
        setenv("TMPDIR", path().c_str(), 1);
        ZipWrapperTestPeer::forgetTemporaryFolder();
    }

    ~ZipTestFolder() {
        ZipWrapperTestPeer::forgetTemporaryFolder();
        if (before_) {
            setenv("TMPDIR", before_->c_str(), 1);
        } else {
            unsetenv("TMPDIR");
        }
    }

    ZipTestFolder(const ZipTestFolder&) = delete;
    ZipTestFolder& operator=(const ZipTestFolder&) = delete;

    [[nodiscard]] std::filesystem::path path() const { return folder_.path(); }

    /// The number of files in the container's folder, and of folders beside it.
    [[nodiscard]] std::size_t spooledFiles() const {
        const auto folder = ZipWrapper::tempFolderPath();
        const std::filesystem::directory_iterator files(*folder);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

private:
    test::TemporaryFolder folder_;
    std::optional<std::string> before_;
};

}  // namespace parlavox
