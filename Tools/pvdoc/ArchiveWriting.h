// Writes an archive that is read back before it takes its place.
//
// One thread.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/FileWrapper.h"
#include "Platform/Foundation/Result.h"
#include "Tools/pvdoc/FileTree.h"

namespace pvdoc {

/// The level at which a file that is not empty is deflated, 1 to 9; 0 stores it.
using LevelOf = std::function<std::uint32_t(const TreeMember& member)>;

inline constexpr std::uint32_t kHighestLevel = 9;
inline constexpr std::uint32_t kUsualLevel = 6;

/// Writes an archive of `children` at `target`.
///
/// It is made beside its place and its directory read back: the names, sizes and checksums there
/// must be those of the children, except that the format lists no empty files. Then it replaces
/// what is at `target`. A Fault names the file, and what was there is as it was.
platform::Outcome writeArchive(const std::string& target,
                               const std::vector<platform::FileWrapperEntry>& children,
                               const LevelOf& levelOf);

}  // namespace pvdoc
