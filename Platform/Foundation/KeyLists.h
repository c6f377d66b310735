// The lists of keys that dictionaries of an archive have in common.
//
// Most dictionaries of an archive name the same few keys in the same order. The last such lists are
// kept, so that dictionaries share them. One thread at a time.

#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Platform/Foundation/DictionaryKeys.h"

namespace platform {

/// Finds keys by the references that name them.
class KeyLists {
public:
    /// Longer lists are few, or hostile.
    static constexpr std::uint64_t kMostKeys = 16;

    using References = std::span<const std::uint64_t>;

    /// Returns the keys; null when they are not kept. Requires: there is a reference.
    [[nodiscard]] SharedKeys find(References references) const {
        const List& list = lists_[placeOf(references)];
        return std::equal(references.begin(), references.end(), list.references.begin(),
                          list.references.end())
                   ? list.keys
                   : nullptr;
    }

    /// Keeps keys, in the place of others. Requires: there is a reference.
    void keep(References references, SharedKeys keys) {
        lists_[placeOf(references)] = {{references.begin(), references.end()}, std::move(keys)};
    }

private:
    struct List {
        std::vector<std::uint64_t> references;
        SharedKeys keys;
    };

    static std::size_t placeOf(References references) {
        const std::uint64_t mix = references.front() * 31 + references.back();
        return (mix * 31 + references.size()) % kLists;
    }

    static constexpr std::size_t kLists = 32;
    std::array<List, kLists> lists_;
};

}  // namespace platform
