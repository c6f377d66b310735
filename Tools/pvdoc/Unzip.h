// pvdoc unzip: the files of an archive of the container's own form.

#pragma once

#include <string>

#include "Platform/Foundation/Result.h"
#include "Tools/pvdoc/Target.h"

namespace pvdoc {

struct UnzipOptions {
    std::string archive;
    std::string folder;
    Overwrite overwrite = Overwrite::No;
};

/// Writes all that the archive lists into the folder, which is made when it is not there.
///
/// All is written beside its place and compared with what the directory says first. A folder that
/// is there and not empty is only taken with Overwrite::Yes: files replace those of the same name,
/// but nothing takes a folder's place, and links are not followed.
///
/// A Fault names the file: it is no such archive, a member's name leads out of the folder or occurs
/// twice, a member is damaged, or the files can't be written. The folder is then as it was, unless
/// the system refused in the middle of putting files into it.
platform::Outcome unzip(const UnzipOptions& options);

}  // namespace pvdoc
