#include "Tools/pvdoc/Zip.h"

#include "Tools/pvdoc/FolderContents.h"

namespace pvdoc {

platform::Result<std::vector<std::string>> zip(const ZipOptions& options) {
    PV_TRY(checkTarget(options.target, options.overwrite));
    FolderContents contents = PV_TRY(contentsOfFolder(options.folder, options.target));
    PV_TRY(writeArchive(options.target, contents.children,
                        [&](const TreeMember&) { return options.level; }));
    return std::move(contents.emptyFiles);
}

}  // namespace pvdoc
