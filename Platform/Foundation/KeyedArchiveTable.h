// The frame of a keyed archive: its top-level values and its table of objects.
//
// A view over a binary property list; an XML archive is turned into one first.
// One thread at a time.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Platform/Foundation/BinaryPropertyList.h"
#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// Finds an archive's objects and classes; objects are named by their numbers in the property list.
class KeyedArchiveTable {
public:
    /// Returns the table of the archive `data`; a Fault when it is no property list, or one
    /// without "$top" or "$objects".
    static Result<KeyedArchiveTable> open(const Data& data);

    [[nodiscard]] const BinaryPropertyList& list() const { return list_; }
    [[nodiscard]] const BinaryItem& top() const { return top_; }
    [[nodiscard]] std::uint64_t objectCount() const { return objects_.count; }

    /// Returns the number of the object that an archive reference names; a Fault when it lies
    /// outside of the table.
    Result<std::uint64_t> numberOfReference(std::uint64_t reference) const;

    /// Returns the reference that `item` is, in either form; nothing when it is none.
    [[nodiscard]] std::optional<std::uint64_t> referenceOf(const BinaryItem& item) const;

    /// Returns how a caller's key is spelt in the archive: a "$" in front is doubled, so that it
    /// can't meet one of the archive's own.
    [[nodiscard]] static std::string spelling(std::string_view key);

    /// Returns the number of the value under `key`, spelt as in the archive; nothing when there is
    /// none.
    Result<std::optional<std::uint64_t>> valueNumber(const BinaryItem& dictionary,
                                                     std::string_view key) const;

    /// Returns the names that a class entry states; a Fault when the value is none.
    static Result<ArchivedClassNames> classNames(const Value& entry, BuildBudget& budget);

private:
    explicit KeyedArchiveTable(BinaryPropertyList list) : list_(std::move(list)) {}

    BinaryPropertyList list_;
    BinaryItem top_;
    BinaryItem objects_;
};

}  // namespace platform
