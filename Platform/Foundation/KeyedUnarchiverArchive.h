// What a KeyedUnarchiver knows of its archive. For the unarchiver's own sources.
//
// One thread at a time.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Platform/Foundation/ArchivedObject.h"
#include "Platform/Foundation/BuildBudget.h"
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

    /// An instance's class: how to decode it, or null, and its names.
    struct Class {
        ObjectDecoder decode = nullptr;
        std::shared_ptr<const ArchivedClassNames> names;
    };

    /// Returns the class of the instance `item`; null when it is no instance.
    Result<const Class*> classOf(const BinaryItem& item);

    /// Keeps the instance `item` as it is.
    Result<Value> opaqueObject(const BinaryItem& item, unsigned depth);

    const KeyedArchiveTable table;
    BuildBudget budget;
    PropertyListDecoder decoder;
    std::unordered_map<std::string_view, ObjectDecoder> knownClasses;
    std::uint64_t nextUnkeyed = 0;

private:
    /// An object of the table: decoded, damaged, or (neither) being decoded.
    struct Slot {
        std::optional<Value> value;
        std::optional<Fault> damage;
        /// How many levels of objects and containers are below a decoded object.
        unsigned height = 0;
        /// The object itself while its fields are being decoded, if it is opaque.
        std::weak_ptr<const OpaqueObject> unfinished;
    };

    Result<Value> known(const Slot& slot, std::uint64_t reference, unsigned depth);
    Result<Value> decode(std::uint64_t number, std::uint64_t reference, unsigned depth);
    Result<Value> objectAt(std::uint64_t number, unsigned depth);
    Result<Value> instance(const Class& type, const BinaryItem& item, unsigned depth);
    Result<Value> inlineContainer(const BinaryItem& item, unsigned depth);
    Outcome reach(unsigned depth);
    [[nodiscard]] FieldForm formOf(const BinaryItem& content) const;
    ObjectDecoder decoderFor(const ArchivedClassNames& names) const;

    KeyedUnarchiver& unarchiver_;
    /// By the numbers of their entries in the property list, as are the slots.
    std::unordered_map<std::uint64_t, Class> classes_;
    std::unordered_map<std::uint64_t, Slot> slots_;
    /// The objects that are being decoded, innermost last.
    std::vector<std::uint64_t> open_;
    /// The deepest level reached by the object that is being decoded.
    unsigned deepest_ = 0;
};

}  // namespace platform
