#include "Platform/Foundation/KeyedUnarchiver.h"

#include <string>
#include <utility>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/FoundationCoding.h"
#include "Platform/Foundation/KeyedUnarchiverArchive.h"

namespace platform {
namespace {

constexpr std::string_view kNullName = "$null";

[[noreturn]] void raiseUnarchive(const Fault& fault) {
    raise(UnarchiveException(fault.detail));
}

bool isContainer(const BinaryItem& item) {
    return item.kind == BinaryKind::Array || item.kind == BinaryKind::Dictionary;
}

}  // namespace

// The archive.

KeyedUnarchiver::Archive::Archive(KeyedUnarchiver& unarchiver, KeyedArchiveTable archiveTable)
    : table(std::move(archiveTable)),
      decoder(table.list()),
      unarchiver_(unarchiver),
      places_(table.objectCount()) {
}

Result<Value> KeyedUnarchiver::Archive::valueOfNumber(std::uint64_t number, unsigned depth) {
    const BinaryItem item = PV_TRY(table.list().itemAt(number));
    if (const auto reference = table.referenceOf(item)) {
        return objectOfReference(*reference, depth);
    }
    return isContainer(item) ? inlineContainer(item, depth) : decoder.valueAt(number);
}

Result<Value> KeyedUnarchiver::Archive::inlineContainer(const BinaryItem& item, unsigned depth) {
    if (depth >= kMaxArchiveDepth) {
        return Fault{FaultCode::TooDeep, "values nested too deep"};
    }
    PV_TRY(decoder.charge(item.bytes.length));
    if (item.kind == BinaryKind::Array) {
        Array array;
        array.reserve(item.count);
        for (std::uint64_t i = 0; i < item.count; ++i) {
            array.push_back(PV_TRY(valueOfNumber(table.list().elementAt(item, i), depth + 1)));
        }
        return Value(std::move(array));
    }
    Dictionary dictionary;
    for (std::uint64_t i = 0; i < item.count; ++i) {
        const Value key = PV_TRY(decoder.valueAt(table.list().keyAt(item, i)));
        auto name = key.utf8();
        if (!name) {
            return Fault{FaultCode::Malformed, "dictionary key that is no string"};
        }
        PV_TRY(decoder.chargeKey(*name));
        dictionary.set(std::move(*name),
                       PV_TRY(valueOfNumber(table.list().valueAt(item, i), depth + 1)));
    }
    return Value(std::move(dictionary));
}

Result<Value> KeyedUnarchiver::Archive::objectOfReference(std::uint64_t reference, unsigned depth) {
    if (reference == 0) {
        return Value();
    }
    // Checks that the reference lies in the table.
    PV_TRY(table.numberOfReference(reference));
    if (const std::uint32_t place = places_[reference]) {
        const Slot& slot = slots_[place - 1];
        if (slot.value) {
            return *slot.value;
        }
        if (!slot.unfinished.expired()) {
            return Value(std::make_shared<const BackReference>(slot.unfinished));
        }
        return Fault{FaultCode::Cyclic, "object " + std::to_string(reference) + " contains itself"};
    }
    if (depth >= kMaxArchiveDepth) {
        return Fault{FaultCode::TooDeep,
                     "objects nested deeper than " + std::to_string(kMaxArchiveDepth) + " levels"};
    }
    slots_.emplace_back();
    const auto place = static_cast<std::uint32_t>(slots_.size());
    places_[reference] = place;
    open_.push_back(place);
    auto value = objectAt(reference, depth);
    open_.pop_back();
    if (!value) {
        places_[reference] = 0;
        return value;
    }
    slots_[place - 1] = {value.value(), {}};
    return value;
}

Result<Value> KeyedUnarchiver::Archive::objectAt(std::uint64_t reference, unsigned depth) {
    const std::uint64_t number = PV_TRY(table.numberOfReference(reference));
    const BinaryItem item = PV_TRY(table.list().itemAt(number));
    if (const auto target = table.referenceOf(item)) {
        return objectOfReference(*target, depth + 1);
    }
    if (item.kind == BinaryKind::Dictionary) {
        const Class* const type = PV_TRY(classOf(item));
        return type != nullptr ? instance(*type, item, depth) : decoder.valueAt(number);
    }
    // An object that was archived only if others need it leaves a second null entry.
    return table.list().equalsAscii(item, kNullName) ? Value() : decoder.valueAt(number);
}

Result<Value> KeyedUnarchiver::Archive::instance(const Class& type, const BinaryItem& item,
                                                 unsigned depth) {
    PV_TRY(decoder.charge(item.bytes.length));
    const ArchivedObject object(unarchiver_, item, depth);
    return type.decode != nullptr ? type.decode(object) : opaqueObject(object, item);
}

Result<Value> KeyedUnarchiver::Archive::opaqueObject(const ArchivedObject& object,
                                                     const BinaryItem& item) {
    const auto opaque = std::make_shared<OpaqueObject>();
    if (!open_.empty()) {
        slots_[open_.back() - 1].unfinished = opaque;
    }
    if (const Class* const type = PV_TRY(classOf(item))) {
        opaque->type = type->names;
    }
    PV_TRY(object.forEachField([&](std::string key, Value value) {
        opaque->fields.set(std::move(key), std::move(value));
    }));
    return Value(std::shared_ptr<const Object>(opaque));
}

Result<const KeyedUnarchiver::Archive::Class*> KeyedUnarchiver::Archive::classOf(
    const BinaryItem& item) {
    const auto number = PV_TRY(table.valueNumber(item, "$class"));
    if (!number) {
        return nullptr;
    }
    const auto reference = table.referenceOf(PV_TRY(table.list().itemAt(*number)));
    if (!reference) {
        return Fault{FaultCode::Malformed, "$class that is no reference"};
    }
    if (const auto known = classes_.find(*reference); known != classes_.end()) {
        return &known->second;
    }
    Class type;
    auto names = PV_TRY(table.classNames(*reference, decoder));
    type.decode = decoderFor(names);
    type.names = std::make_shared<const ArchivedClassNames>(std::move(names));
    return &classes_.emplace(*reference, std::move(type)).first->second;
}

ObjectDecoder KeyedUnarchiver::Archive::decoderFor(const ArchivedClassNames& names) const {
    const auto find = [&](std::string_view name) {
        const auto known = knownClasses.find(name);
        return known != knownClasses.end() ? known->second : nullptr;
    };
    // The class itself, then what its writer suggests instead, then the nearest superclass.
    ObjectDecoder decode = find(names.names.front());
    for (std::size_t i = 0; decode == nullptr && i < names.hints.size(); ++i) {
        decode = find(names.hints[i]);
    }
    for (std::size_t i = 1; decode == nullptr && i < names.names.size(); ++i) {
        decode = find(names.names[i]);
    }
    return decode;
}

// The unarchiver.

KeyedUnarchiver::KeyedUnarchiver(const Data& data) {
    auto table = KeyedArchiveTable::open(data);
    if (!table) {
        raiseUnarchive(table.fault());
    }
    archive_ = std::make_unique<Archive>(*this, std::move(table).value());
    addClasses(foundationClasses());
}

KeyedUnarchiver::~KeyedUnarchiver() = default;

std::shared_ptr<KeyedUnarchiver> KeyedUnarchiver::initForReadingWithData(const Data& data) {
    return std::shared_ptr<KeyedUnarchiver>(new KeyedUnarchiver(data));
}

void KeyedUnarchiver::addClasses(std::span<const CodableClass> classes) {
    if (archive_) {
        for (const CodableClass& type : classes) {
            archive_->knownClasses.insert_or_assign(type.name, type.decode);
        }
    }
}

Value KeyedUnarchiver::decodeTopLevel(std::uint64_t number) {
    auto value = archive_->valueOfNumber(number, 0);
    if (!value) {
        raiseUnarchive(value.fault());
    }
    return std::move(value).value();
}

Value KeyedUnarchiver::decodeObject() {
    if (!archive_) {
        return Value();
    }
    const KeyedArchiveTable& table = archive_->table;
    const std::string unkeyed = "$" + std::to_string(archive_->nextUnkeyed);
    if (const auto number = table.valueNumber(table.top(), unkeyed); number && number.value()) {
        ++archive_->nextUnkeyed;
        return decodeTopLevel(*number.value());
    }
    if (const auto number = table.valueNumber(table.top(), "root"); number && number.value()) {
        return decodeTopLevel(*number.value());
    }
    if (table.top().count != 1) {
        raise(UnarchiveException("keyed archive without a root object"));
    }
    return decodeTopLevel(table.list().valueAt(table.top(), 0));
}

Value KeyedUnarchiver::decodeObjectForKey(std::string_view key) {
    if (!archive_) {
        return Value();
    }
    const KeyedArchiveTable& table = archive_->table;
    const auto number = table.valueNumber(table.top(), KeyedArchiveTable::spelling(key));
    if (!number) {
        raiseUnarchive(number.fault());
    }
    return number.value() ? decodeTopLevel(*number.value()) : Value();
}

bool KeyedUnarchiver::containsValueForKey(std::string_view key) const {
    if (!archive_) {
        return false;
    }
    const KeyedArchiveTable& table = archive_->table;
    const auto number = table.valueNumber(table.top(), KeyedArchiveTable::spelling(key));
    return number && number.value().has_value();
}

void KeyedUnarchiver::finishDecoding() {
    archive_.reset();
}

}  // namespace platform
