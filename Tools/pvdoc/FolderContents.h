// The files below a folder of the disk, for an archive.
//
// One thread.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// A file whose contents stay on the disk; who wants to, copies them from there piece by piece.
class FileOnDisk final : public platform::FileWrapper {
public:
    [[nodiscard]] static std::shared_ptr<FileOnDisk> initWithPath(std::string path);

    explicit FileOnDisk(Creation key) : FileWrapper(key) {}

    /// Reads the file, at each call anew. Nothing when it cannot be read.
    [[nodiscard]] std::optional<platform::Data> regularFileContents() const override;

    [[nodiscard]] std::optional<std::string> contentFilePath() const override { return path_; }

private:
    std::string path_;
};

/// What a folder holds.
struct FolderContents {
    std::vector<platform::FileWrapperEntry> children;  ///< in the order of their names
    std::vector<std::string> emptyFiles;               ///< their paths
};

/// Returns what is below the folder at `path`, hidden files too; but not what is at `leftOut`,
/// the archive that is to be replaced.
///
/// A Fault, which names the path, when anything can't be read or an archive can't hold it: links,
/// pipes, devices, names that readers don't find, folders more than 128 deep.
platform::Result<FolderContents> contentsOfFolder(const std::string& path,
                                                  const std::string& leftOut);

}  // namespace pvdoc
