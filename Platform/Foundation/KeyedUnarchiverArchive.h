// What a KeyedUnarchiver knows of its archive. For the unarchiver's own sources.
//
// One thread at a time.

#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/BuildBudget.h"
#include "Platform/Foundation/DecodedObjects.h"
#include "Platform/Foundation/FieldFinder.h"
#include "Platform/Foundation/KeyLists.h"
#include "Platform/Foundation/KeyedArchiveTable.h"
#include "Platform/Foundation/KeyedUnarchiver.h"
#include "Platform/Foundation/PropertyListDecoder.h"

namespace platform {

/// The archive, the classes known for it, and the objects decoded so far.
class KeyedUnarchiver::Archive {
public:
    Archive(KeyedUnarchiver& unarchiver, KeyedArchiveTable table);

    /// Decodes what a field or an element holds: a reference's object, or an inline value, whose
    /// own elements may be references.
    Result<Value> valueOfNumber(std::uint64_t number, unsigned depth);

    /// Decodes what `item`, the object with that number, holds.
    Result<Value> valueOfItem(const BinaryItem& item, std::uint64_t number, unsigned depth);

    /// Decodes the object that `reference` names.
    Result<Value> objectOfReference(std::uint64_t reference, unsigned depth);

    /// Returns the number of the value under `key`, spelt as in the archive; nothing when there is
    /// none.
    Result<std::optional<std::uint64_t>> valueNumber(const BinaryItem& item, std::string_view key) {
        return fields_.valueNumber(item, key);
    }

    /// An instance's class: how to decode it, or null, and its names.
    struct Class {
        ObjectDecoder decode = nullptr;
        std::shared_ptr<const ArchivedClassNames> names;
    };

    /// Returns the class of the instance `item`; null when it is no instance.
    Result<const Class*> classOf(const BinaryItem& item);

    /// Returns the keys that the array `item` names, to be shared by dictionaries; null when they
    /// are not a few references to different strings.
    Result<SharedKeys> sharedKeys(const BinaryItem& item, unsigned depth);

    /// Keeps the instance `item` as it is.
    Result<Value> opaqueObject(const BinaryItem& item, unsigned depth);

    const KeyedArchiveTable table;
    BuildBudget budget;
    PropertyListDecoder decoder;
    std::unordered_map<std::string_view, ObjectDecoder> knownClasses;
    std::uint64_t nextUnkeyed = 0;

private:
    /// An object that is being decoded, and what is there of it when it is opaque.
    struct Open {
        std::uint64_t number;
        std::weak_ptr<const OpaqueObject> unfinished;
    };

    /// A class that was found last; null when there was none.
    struct RecentClass {
        std::uint64_t reference = 0;
        const Class* type = nullptr;
    };

    Result<const Class*> classNamedBy(std::uint64_t reference);
    Result<Value> known(std::uint64_t number, std::uint64_t reference, unsigned depth);
    Result<Value> containing(std::uint64_t number, std::uint64_t reference) const;
    Result<Value> decode(std::uint64_t number, std::uint64_t reference, unsigned depth);
    Result<Value> objectAt(const BinaryItem& item, unsigned depth);
    Result<Value> instance(const Class& type, const BinaryItem& item, unsigned depth);
    Result<Value> inlineContainer(const BinaryItem& item, unsigned depth);
    Outcome reach(unsigned depth);
    [[nodiscard]] bool isStringReference(std::uint64_t reference) const;
    Result<OpaqueField> opaqueField(std::uint64_t number, unsigned depth);
    ObjectDecoder decoderFor(const ArchivedClassNames& names) const;

    KeyedUnarchiver& unarchiver_;
    FieldFinder fields_;
    KeyLists keyLists_;
    /// By the numbers of their entries in the property list, as are the objects.
    std::unordered_map<std::uint64_t, Class> classes_;
    std::array<RecentClass, 16> recentClasses_;
    DecodedObjects objects_;
    /// The objects that are being decoded, innermost last.
    std::vector<Open> open_;
    /// The deepest level reached by the object that is being decoded.
    unsigned deepest_ = 0;
    /// Whether the field that is being decoded holds a reference.
    bool hasReference_ = false;
};

}  // namespace platform
