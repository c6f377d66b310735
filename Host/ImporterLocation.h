// Where the importer is that belongs to this program.

#pragma once

#include <optional>
#include <string>

namespace host {

/// Returns the path of Parlavox.mdimporter in one of its places relative to the folder `programs`:
/// `../Parlavox.mdimporter`, where the build leaves it, and then
/// `../lib/parlavox/Parlavox.mdimporter`, where it is installed. Nothing when there is none.
[[nodiscard]] std::optional<std::string> importerBeside(const std::string& programs);

/// Returns the folder of the running program; nothing when the system doesn't tell.
[[nodiscard]] std::optional<std::string> folderOfProgram();

}  // namespace host
