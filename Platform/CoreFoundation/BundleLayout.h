// Where a bundle keeps its Info.plist and its executable.
//
// Looks at the disk, keeps nothing. Any thread.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform::cf {

/// Returns the path of the bundle's Info.plist, nothing when it has none.
[[nodiscard]] std::optional<std::string> findInfoPlist(const std::string& bundlePath);

/// Returns the path of the executable `name` of the bundle, nothing when there is none.
[[nodiscard]] std::optional<std::string> findExecutable(const std::string& bundlePath,
                                                        std::string_view name);

/// Returns the bundle's folder name less its extension.
[[nodiscard]] std::string nameOfBundle(const std::string& bundlePath);

/// Returns the path from the root without doubled slashes and single dots. Symbolic links and
/// double dots stay, as only the disk knows where they lead.
[[nodiscard]] std::string plainPath(std::string_view absolutePath);

}  // namespace platform::cf
