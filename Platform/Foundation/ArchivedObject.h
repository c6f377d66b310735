// One object of a keyed archive while its class decodes it.
//
// Borrowed by decoders for the time of one call; one thread.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/BinaryPropertyList.h"
#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// The fields of one archived object, by key.
///
/// Look-ups go through all of the object's keys; to have all fields, take the opaque object.
class ArchivedObject {
public:
    /// The unarchiver that reads the object.
    [[nodiscard]] KeyedUnarchiver& unarchiver() const { return unarchiver_; }

    [[nodiscard]] bool containsValueForKey(std::string_view key) const;

    /// Returns the object or inline value under `key`; null when there is none or it is the null
    /// object.
    Result<Value> objectForKey(std::string_view key) const;

    /// Returns the text under `key`: inline, or of an object that is a string. Null when there is
    /// none or it is the null object; anything else is a Fault.
    Result<std::shared_ptr<const std::u16string>> stringForKey(std::string_view key) const;

    /// Returns the bytes under `key`: inline, or of an object that is data. Nothing when there are
    /// none or it is the null object; anything else is a Fault.
    Result<std::optional<Data>> dataForKey(std::string_view key) const;

    /// Returns the integer under `key` as integerValue reads it, 0 when there is none; a value that
    /// is no number is a Fault.
    Result<std::int64_t> integerForKey(std::string_view key) const;

    /// The elements of an array, to be decoded one by one.
    class Elements {
    public:
        [[nodiscard]] std::uint64_t count() const {
            return isNumbered_ ? numbers_.size() : item_.count;
        }

        /// Returns the element at `position`, null for the null object; a Fault when there is none.
        Result<Value> objectAt(std::uint64_t position) const;

        /// Makes no elements, to be read by readElements.
        explicit Elements(const ArchivedObject& object)
            : unarchiver_(object.unarchiver_), depth_(object.depth_ + 1) {}

    private:
        friend class ArchivedObject;
        Elements(KeyedUnarchiver& unarchiver, const BinaryItem& item, unsigned depth)
            : unarchiver_(unarchiver), item_(item), depth_(depth) {}

        KeyedUnarchiver& unarchiver_;
        BinaryItem item_;
        unsigned depth_;
        /// Where the elements are fields of their own, the numbers of their values.
        bool isNumbered_ = false;
        std::vector<std::uint64_t> numbers_;
    };

    /// Returns the elements of the array under `key`: inline, or of an object that is an array or
    /// set. Nothing when there is no value or it is anything else.
    Result<std::optional<Elements>> elementsForKey(std::string_view key) const;

    /// Returns this object's own elements: the inline array under `key`, or without one the fields
    /// whose keys are `prefix` and a number, from 0 up to the first number that is missing.
    Result<Elements> elements(std::string_view key, std::string_view prefix) const {
        Elements elements(*this);
        PV_TRY(readElements(key, prefix, elements));
        return elements;
    }

    /// The same, for those who read very many: fills `elements`, which must be as they were made.
    Outcome readElements(std::string_view key, std::string_view prefix, Elements& elements) const;

    /// Returns the keys that `keys` are, to be shared by all dictionaries of the archive that have
    /// the same. Null when they are many or not all different strings.
    Result<SharedKeys> sharedKeys(const Elements& keys) const;

    /// Counts `count` things of `size` bytes that are made of fields which other objects may share
    /// against what may be built in all.
    Outcome charge(std::uint64_t count, std::uint64_t size = 1) const;

    /// How many fields the object has beside "$class", which decoders' objects have.
    [[nodiscard]] std::uint64_t fieldCount() const { return item_.count - 1; }

    /// Returns the object as an OpaqueObject.
    Result<Value> opaque() const;

    /// Returns what `Type::fromArchived` makes of the object, or where that is null the object as
    /// an OpaqueObject. What it copies is counted: objects may share what they hold.
    template <class Type>
    Result<Value> typed() const {
        Value kept = PV_TRY(opaque());
        const auto archived = std::static_pointer_cast<const OpaqueObject>(kept.object());
        const auto object = PV_TRY(Type::fromArchived(archived, budget()));
        return object != nullptr ? Value(object) : kept;
    }

private:
    friend class KeyedUnarchiver;

    ArchivedObject(KeyedUnarchiver& unarchiver, const BinaryItem& item, unsigned depth)
        : unarchiver_(unarchiver), item_(item), depth_(depth) {}

    [[nodiscard]] KeyedUnarchiver::Archive& archive() const { return *unarchiver_.archive_; }
    [[nodiscard]] BuildBudget& budget() const;

    Result<std::optional<std::uint64_t>> valueNumberForKey(std::string_view key) const;
    Result<std::string> keyAt(std::uint64_t position) const;

    KeyedUnarchiver& unarchiver_;
    const BinaryItem& item_;
    unsigned depth_;
};

}  // namespace platform
