// pvdoc templates: a document's tag templates, shown and changed.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Platform/Foundation/Result.h"

namespace pvdoc {

/// One change of a list at most. Places count from 0.
struct TemplatesOptions {
    std::string file;
    /// Templates that are text, to stand from `at` on; without a place, at the end.
    std::vector<std::string> inserted;
    std::optional<std::uint64_t> at;
    std::vector<std::uint64_t> removed;
    /// The template to be moved, and where it shall be in the list without it.
    std::optional<std::uint64_t> moved;
    std::optional<std::uint64_t> to;

    [[nodiscard]] bool isChange() const { return !inserted.empty() || !removed.empty() || moved; }
};

/// Returns a listing of the document's tag templates, one a line, after the change.
///
/// A change writes the package anew: the other members keep their contents and their order, and
/// templates of classes that nobody here knows stay as they are. A Fault names the file, which is
/// then as it was: it can't be read, needs a newer reader, has no template at such a place, or a
/// member can't be carried over unharmed.
platform::Result<std::string> templates(const TemplatesOptions& options);

}  // namespace pvdoc
