// Finds fields of archived objects by their keys.
//
// An archive holds many objects with the same few keys in the same order, and the entries of these
// have the same bytes. So the keys of the last such makes of objects are kept, and an object of one
// of them is searched without a look at its keys' own entries.
// One thread at a time.

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Platform/Foundation/KeyedArchiveTable.h"

namespace platform {

/// Answers as KeyedArchiveTable::valueNumber does.
class FieldFinder {
public:
    /// `table` is borrowed and must outlive the finder.
    explicit FieldFinder(const KeyedArchiveTable& table) : table_(table) {}

    /// Returns the number of the value under `key`, spelt as in the archive; nothing when there is
    /// none.
    Result<std::optional<std::uint64_t>> valueNumber(const BinaryItem& dictionary,
                                                     std::string_view key);

private:
    /// The keys of one make.
    struct Make {
        std::string_view references;  ///< the bytes by which a dictionary names its keys
        std::vector<std::string_view> keys;
    };

    const Make* makeOf(const BinaryItem& dictionary);
    const Make* findMake(const BinaryItem& dictionary);
    [[nodiscard]] bool readKeys(const BinaryItem& dictionary, Make& make) const;

    const KeyedArchiveTable& table_;
    std::array<Make, 32> makes_;
    /// The dictionary that was asked about last, by its place and size, and its make.
    Range last_;
    const Make* lastMake_ = nullptr;
};

}  // namespace platform
