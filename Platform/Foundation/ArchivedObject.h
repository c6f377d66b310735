// One object of a keyed archive while its class decodes it.
//
// Borrowed by decoders for the time of one call; one thread.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/BinaryPropertyList.h"
#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/Result.h"
#include "Platform/Foundation/Value.h"

namespace platform {

/// The fields of one archived object, by key.
///
/// Look-ups go through all of the object's keys; to read very many, use forEachField.
class ArchivedObject {
public:
    /// The unarchiver that reads the object.
    [[nodiscard]] KeyedUnarchiver& unarchiver() const { return unarchiver_; }

    [[nodiscard]] bool containsValueForKey(std::string_view key) const;

    /// Returns the object or inline value under `key`; null when there is none or it is the null
    /// object.
    Result<Value> objectForKey(std::string_view key) const;

    /// Returns the text under `key`: inline, or of an object that is a string. Nothing when there
    /// is none or it is the null object; anything else is a Fault.
    Result<std::shared_ptr<const std::u16string>> stringForKey(std::string_view key) const;

    /// Returns the bytes under `key`: inline, or of an object that is data. Nothing when there are
    /// none or it is the null object; anything else is a Fault.
    Result<std::optional<Data>> dataForKey(std::string_view key) const;

    /// The elements of an array, to be decoded one by one.
    class Elements {
    public:
        [[nodiscard]] std::uint64_t count() const { return item_.count; }

        /// Returns the element at `position`, null for the null object; a Fault when there is none.
        Result<Value> objectAt(std::uint64_t position) const;

    private:
        friend class ArchivedObject;
        Elements(KeyedUnarchiver& unarchiver, const BinaryItem& item, unsigned depth)
            : unarchiver_(unarchiver), item_(item), depth_(depth) {}

        KeyedUnarchiver& unarchiver_;
        BinaryItem item_;
        unsigned depth_;
    };

    /// Returns the elements of the array under `key`: inline, or of an object that keeps its
    /// elements in one inline array, as arrays and sets do. Nothing when it is anything else.
    Result<std::optional<Elements>> elementsForKey(std::string_view key) const;

    /// Counts what is made of a key, or of other bytes, that many objects may share against what
    /// may be built in all.
    Outcome chargeKey(std::string_view key) const;

    /// Returns the object as an OpaqueObject.
    Result<Value> opaque() const;

    /// Calls `receive(key, value)` for each field in the archive's order, "$class" left out. Stops
    /// at the first Fault and returns it.
    template <class Receive>
    Outcome forEachField(Receive receive) const {
        for (std::uint64_t i = 0; i < item_.count; ++i) {
            std::string key = PV_TRY(keyAt(i));
            if (key != "$class") {
                receive(std::move(key), PV_TRY(valueAt(i)));
            }
        }
        return done();
    }

private:
    friend class KeyedUnarchiver;

    ArchivedObject(KeyedUnarchiver& unarchiver, const BinaryItem& item, unsigned depth)
        : unarchiver_(unarchiver), item_(item), depth_(depth) {}

    [[nodiscard]] KeyedUnarchiver::Archive& archive() const { return *unarchiver_.archive_; }

    Result<std::optional<std::uint64_t>> valueNumberForKey(std::string_view key) const;
    Result<std::string> keyAt(std::uint64_t position) const;
    Result<Value> valueAt(std::uint64_t position) const;

    KeyedUnarchiver& unarchiver_;
    BinaryItem item_;
    unsigned depth_;
};

}  // namespace platform
