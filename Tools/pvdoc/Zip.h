// pvdoc zip: a folder as an archive of the container's own form.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Platform/Foundation/Result.h"
#include "Tools/pvdoc/ArchiveWriting.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

struct ZipOptions {
    std::string folder;
    std::string target;
    std::uint32_t level = kUsualLevel;  ///< 0 stores, 1 to 9 deflate
    Overwrite overwrite = Overwrite::No;
};

/// Writes an archive of all that the folder holds, in the order of the names; stored files are
/// copied piece by piece. Returns the paths of the empty files, which the format doesn't list, so
/// that no reader finds them.
///
/// A Fault names the file, and what was there is as it was.
platform::Result<std::vector<std::string>> zip(const ZipOptions& options);

}  // namespace pvdoc
