// Hashes names that strangers chose.
//
// The hash depends on a secret of the process, so that nobody can prepare an archive whose names
// all fall into one bucket. It differs from run to run: never let an order or a file depend on it.
// Immutable; any thread at once.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

/// A hash function for strings, fit for the standard containers.
class NameHash {
public:
    using is_transparent = void;

    /// Takes the process's secret.
    NameHash();

    [[nodiscard]] std::size_t operator()(std::string_view name) const;

private:
    std::uint64_t point_;
    std::uint64_t factor_;
};

}  // namespace platform
