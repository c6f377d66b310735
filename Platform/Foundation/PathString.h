// Takes paths apart and puts them together, as strings; the disk is not asked.
//
// A path is bytes, mostly UTF-8; "/" separates its components, several in a row count as one.
// Operations keep no state and may run on any thread at once.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Returns the components of `path`. A leading "/" is the first component; a trailing one adds a
/// last component "/". The empty path has none.
///
/// Selector: pathComponents
[[nodiscard]] std::vector<std::string> pathComponents(std::string_view path);

/// Whether an item in a folder can be called `name`: it names neither a folder nor a way out.
[[nodiscard]] bool isPathComponent(std::string_view name);

/// Returns the last component of `path`, whether or not separators follow it; "/" for the root.
///
/// Selector: lastPathComponent
[[nodiscard]] std::string lastPathComponent(std::string_view path);

/// Returns what follows the last dot of the last component.
///
/// It is empty when there is no dot, when the only dot begins or ends the component, and when what
/// follows holds a blank or a character that turns the direction of text: no such ending is one.
///
/// Selector: pathExtension
[[nodiscard]] std::string pathExtension(std::string_view path);

/// Returns `path`, one separator and `component`. Runs of separators become one and those at the
/// end go; an empty path or component adds nothing.
///
/// Selector: stringByAppendingPathComponent:
[[nodiscard]] std::string stringByAppendingPathComponent(std::string_view path,
                                                         std::string_view component);

/// Returns `path` without the separators at its end, a dot and `extension`; "a." for no extension.
///
/// Returns nothing and logs a line when `path` names nothing (it is empty or the root) or when the
/// extension begins with "/".
///
/// Selector: stringByAppendingPathExtension:
[[nodiscard]] std::optional<std::string> stringByAppendingPathExtension(std::string_view path,
                                                                        std::string_view extension);

/// Returns `path` without its pathExtension and the dot, and without separators at its end.
///
/// Selector: stringByDeletingPathExtension
[[nodiscard]] std::string stringByDeletingPathExtension(std::string_view path);

/// Returns `path` without its last component and the separators before it; the root stays.
///
/// Selector: stringByDeletingLastPathComponent
[[nodiscard]] std::string stringByDeletingLastPathComponent(std::string_view path);

}  // namespace platform
