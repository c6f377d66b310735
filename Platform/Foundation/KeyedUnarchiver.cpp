#include "Platform/Foundation/KeyedUnarchiver.h"

#include <algorithm>
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
      budget(table.list().size()),
      decoder(table.list(), budget),
      unarchiver_(unarchiver) {
}

Outcome KeyedUnarchiver::Archive::reach(unsigned depth) {
    if (depth > kMaxArchiveDepth) {
        return Fault{FaultCode::TooDeep,
                     "nested deeper than " + std::to_string(kMaxArchiveDepth) + " levels"};
    }
    deepest_ = std::max(deepest_, depth);
    return done();
}

Result<Value> KeyedUnarchiver::Archive::valueOfNumber(std::uint64_t number, unsigned depth) {
    return valueOfItem(PV_TRY(table.list().itemAt(number)), number, depth);
}

Result<Value> KeyedUnarchiver::Archive::valueOfItem(const BinaryItem& item, std::uint64_t number,
                                                    unsigned depth) {
    if (const auto reference = table.referenceOf(item)) {
        return objectOfReference(*reference, depth);
    }
    return isContainer(item) ? inlineContainer(item, depth) : decoder.valueAt(number);
}

Result<Value> KeyedUnarchiver::Archive::inlineContainer(const BinaryItem& item, unsigned depth) {
    PV_TRY(reach(depth));
    const BinaryPropertyList& list = table.list();
    if (item.kind == BinaryKind::Array) {
        PV_TRY(budget.charge(item.count + 1, sizeof(Value)));
        Array array;
        array.reserve(item.count);
        for (std::uint64_t i = 0; i < item.count; ++i) {
            array.push_back(PV_TRY(valueOfNumber(list.elementAt(item, i), depth + 1)));
        }
        return Value(std::move(array));
    }
    PV_TRY(budget.charge(item.count + 1, sizeof(Dictionary::Entry)));
    Dictionary dictionary;
    for (std::uint64_t i = 0; i < item.count; ++i) {
        std::string key = PV_TRY(decoder.keyAt(list.keyAt(item, i)));
        dictionary.set(std::move(key), PV_TRY(valueOfNumber(list.valueAt(item, i), depth + 1)));
    }
    return Value(std::move(dictionary));
}

Result<Value> KeyedUnarchiver::Archive::objectOfReference(std::uint64_t reference, unsigned depth) {
    if (reference == 0) {
        return Value();
    }
    const std::uint64_t number = PV_TRY(table.numberOfReference(reference));
    const auto [slot, isNew] = slots_.try_emplace(number);
    if (!isNew) {
        return known(slot->second, reference, depth);
    }
    auto value = decode(number, reference, depth);
    if (value) {
        slots_[number].value = value.value();
        slots_[number].unfinished.reset();
        return value;
    }
    // Cycles and depth depend on the way that led here; other damage stays.
    const FaultCode code = value.fault().code;
    if (code == FaultCode::Cyclic || code == FaultCode::TooDeep) {
        slots_.erase(number);
    } else {
        slots_[number].damage = value.fault();
    }
    return value;
}

Result<Value> KeyedUnarchiver::Archive::known(const Slot& slot, std::uint64_t reference,
                                              unsigned depth) {
    if (slot.damage) {
        return *slot.damage;
    }
    if (slot.value) {
        PV_TRY(reach(depth + slot.height));
        return *slot.value;
    }
    if (!slot.unfinished.expired()) {
        return Value(std::make_shared<const BackReference>(slot.unfinished));
    }
    return Fault{FaultCode::Cyclic, "object " + std::to_string(reference) + " contains itself",
                 true};
}

/// Decodes an object that was not decoded before, measures its height and names it in its faults.
Result<Value> KeyedUnarchiver::Archive::decode(std::uint64_t number, std::uint64_t reference,
                                               unsigned depth) {
    const unsigned outerDeepest = std::exchange(deepest_, depth);
    open_.push_back(number);
    auto value = objectAt(number, depth);
    open_.pop_back();
    slots_[number].height = deepest_ - depth;
    deepest_ = std::max(outerDeepest, deepest_);
    if (!value && !value.fault().isPlaced) {
        return Fault{value.fault().code,
                     "object " + std::to_string(reference) + ": " + value.fault().detail, true};
    }
    return value;
}

Result<Value> KeyedUnarchiver::Archive::objectAt(std::uint64_t number, unsigned depth) {
    PV_TRY(reach(depth));
    const BinaryItem item = PV_TRY(table.list().itemAt(number));
    if (const auto target = table.referenceOf(item)) {
        return objectOfReference(*target, depth + 1);
    }
    if (item.kind == BinaryKind::Dictionary) {
        PV_TRY(budget.charge(item.bytes.length));
        const Class* const type = PV_TRY(classOf(item));
        return type != nullptr ? instance(*type, item, depth) : inlineContainer(item, depth);
    }
    if (item.kind == BinaryKind::Array) {
        return inlineContainer(item, depth);
    }
    // An object that was archived only if others need it leaves a second null entry.
    return table.list().equalsAscii(item, kNullName) ? Value() : decoder.valueAt(number);
}

Result<Value> KeyedUnarchiver::Archive::instance(const Class& type, const BinaryItem& item,
                                                 unsigned depth) {
    const ArchivedObject object(unarchiver_, item, depth);
    return type.decode != nullptr ? type.decode(object) : opaqueObject(item, depth);
}

/// Inline containers hold references or plain values; the first element speaks for all.
FieldForm KeyedUnarchiver::Archive::formOf(const BinaryItem& content) const {
    if (table.referenceOf(content)) {
        return FieldForm::Reference;
    }
    if (!isContainer(content) || content.count == 0) {
        return FieldForm::Inline;
    }
    const BinaryPropertyList& list = table.list();
    const auto first =
        list.itemAt(content.kind == BinaryKind::Array ? list.elementAt(content, 0)
                                                      : list.valueAt(content, 0));
    return first && table.referenceOf(first.value()) ? FieldForm::InlineOfReferences
                                                     : FieldForm::Inline;
}

Result<Value> KeyedUnarchiver::Archive::opaqueObject(const BinaryItem& item, unsigned depth) {
    PV_TRY(budget.charge(item.count, sizeof(OpaqueField)));
    const auto opaque = std::make_shared<OpaqueObject>();
    slots_[open_.back()].unfinished = opaque;
    if (const Class* const type = PV_TRY(classOf(item))) {
        opaque->type = type->names;
    }
    const BinaryPropertyList& list = table.list();
    opaque->fields.reserve(item.count);
    for (std::uint64_t i = 0; i < item.count; ++i) {
        OpaqueField field;
        field.name = PV_TRY(decoder.keyAt(list.keyAt(item, i)));
        if (field.name == "$class") {
            continue;
        }
        const std::uint64_t number = list.valueAt(item, i);
        const BinaryItem content = PV_TRY(list.itemAt(number));
        field.value = PV_TRY(valueOfItem(content, number, depth + 1));
        field.form = formOf(content);
        opaque->fields.push_back(std::move(field));
    }
    return Value(std::shared_ptr<const Object>(opaque));
}

Result<const KeyedUnarchiver::Archive::Class*> KeyedUnarchiver::Archive::classOf(
    const BinaryItem& item) {
    const auto field = PV_TRY(table.valueNumber(item, "$class"));
    if (!field) {
        return nullptr;
    }
    const auto reference = table.referenceOf(PV_TRY(table.list().itemAt(*field)));
    if (!reference) {
        return Fault{FaultCode::Malformed, "$class that is no reference"};
    }
    const std::uint64_t number = PV_TRY(table.numberOfReference(*reference));
    if (const auto found = classes_.find(number); found != classes_.end()) {
        return &found->second;
    }
    auto names = PV_TRY(KeyedArchiveTable::classNames(PV_TRY(decoder.valueAt(number)), budget));
    Class type;
    type.decode = decoderFor(names);
    type.names = std::make_shared<const ArchivedClassNames>(std::move(names));
    return &classes_.emplace(number, std::move(type)).first->second;
}

ObjectDecoder KeyedUnarchiver::Archive::decoderFor(const ArchivedClassNames& names) const {
    const auto find = [&](std::string_view name) {
        const auto found = knownClasses.find(name);
        return found != knownClasses.end() ? found->second : nullptr;
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
