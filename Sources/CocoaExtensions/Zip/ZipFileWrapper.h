// A file of an archive whose contents lie in a temporary file.
//
// One thread at a time, like every file wrapper.

#pragma once

#include <memory>
#include <optional>
#include <string>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/FileWrapper.h"

namespace parlavox {

/// A regular file that reads its spool file on demand and removes it when it goes.
class ZipFileWrapper final : public platform::FileWrapper {
public:
    /// Returns a wrapper that owns the file at `path` from now on.
    ///
    /// Selector: initWithPath:
    [[nodiscard]] static std::shared_ptr<ZipFileWrapper> initWithPath(
        std::optional<std::string> path);

    explicit ZipFileWrapper(Creation key) : FileWrapper(key) {}
    ~ZipFileWrapper() override;

    /// Reads the whole spool file, at each call anew. Nothing when it cannot be read.
    ///
    /// Selector: regularFileContents
    [[nodiscard]] std::optional<platform::Data> regularFileContents() const override;

    /// Selector: contentFilePath
    [[nodiscard]] std::optional<std::string> contentFilePath() const override { return filePath_; }

    /// Returns the name on disk, or the preferred one when there is none.
    ///
    /// Selector: filename
    [[nodiscard]] std::optional<std::string> filename() const override;

    /// Writes the contents to `path`. The names are not updated, whatever is asked.
    ///
    /// Selector: writeToFile:atomically:updateFilenames:
    bool writeToFile(const std::string& path, platform::Atomically atomically,
                     platform::UpdateFilenames updateFilenames) override;

private:
    std::optional<std::string> filePath_;
};

}  // namespace parlavox
