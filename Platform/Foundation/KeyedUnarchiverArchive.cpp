#include "Platform/Foundation/KeyedUnarchiverArchive.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <utility>

namespace platform {
namespace {

constexpr std::string_view kNullName = "$null";

bool isContainer(const BinaryItem& item) {
    return item.kind == BinaryKind::Array || item.kind == BinaryKind::Dictionary;
}

/// Whether the value is made again as cheaply as it is found again.
bool isNumber(const BinaryItem& item) {
    return item.kind == BinaryKind::Boolean || item.kind == BinaryKind::Integer ||
           item.kind == BinaryKind::Real;
}

Fault placed(const Fault& fault, std::uint64_t reference) {
    return fault.isPlaced
               ? fault
               : Fault{fault.code, "object " + std::to_string(reference) + ": " + fault.detail,
                       true};
}

}  // namespace

KeyedUnarchiver::Archive::Archive(KeyedUnarchiver& unarchiver, KeyedArchiveTable archiveTable)
    : table(std::move(archiveTable)),
      budget(table.list().size()),
      decoder(table.list(), budget),
      unarchiver_(unarchiver),
      fields_(table),
      objects_(table.list().objectCount(), table.objectCount()) {
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
    if (const auto reference = table.list().uidAt(number)) {
        auto value = objectOfReference(*reference, depth);
        hasReference_ = true;
        return value;
    }
    return valueOfItem(PV_TRY(table.list().itemAt(number)), number, depth);
}

Result<Value> KeyedUnarchiver::Archive::valueOfItem(const BinaryItem& item, std::uint64_t number,
                                                    unsigned depth) {
    if (const auto reference = table.referenceOf(item)) {
        auto value = objectOfReference(*reference, depth);
        hasReference_ = true;
        return value;
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
    if (objects_.find(number) != nullptr) {
        return known(number, reference, depth);
    }
    auto value = decode(number, reference, depth);
    if (!value && !value.fault().isPlaced) {
        return placed(value.fault(), reference);
    }
    return value;
}

Result<Value> KeyedUnarchiver::Archive::known(std::uint64_t number, std::uint64_t reference,
                                              unsigned depth) {
    const DecodedObjects::Entry& object = *objects_.find(number);
    switch (object.state) {
        case DecodedObjects::State::Decoded:
            PV_TRY(reach(depth + object.height));
            return object.value;
        case DecodedObjects::State::Damaged:
            return objects_.faultOf(number);
        default:
            return containing(number, reference);
    }
}

/// An object that contains the one which names it: only an opaque one can.
Result<Value> KeyedUnarchiver::Archive::containing(std::uint64_t number,
                                                   std::uint64_t reference) const {
    const auto open = std::find_if(open_.begin(), open_.end(),
                                   [&](const Open& object) { return object.number == number; });
    if (open != open_.end() && !open->unfinished.expired()) {
        return Value(std::make_shared<const BackReference>(open->unfinished));
    }
    return Fault{FaultCode::Cyclic, "object " + std::to_string(reference) + " contains itself",
                 true};
}

/// Decodes an object that was not decoded before, measures its height and keeps what came of it.
Result<Value> KeyedUnarchiver::Archive::decode(std::uint64_t number, std::uint64_t reference,
                                               unsigned depth) {
    PV_TRY(reach(depth));
    BinaryItem item;
    PV_TRY(table.list().readItem(number, item));
    if (isNumber(item)) {
        return decoder.scalar(item);
    }
    const unsigned outerDeepest = std::exchange(deepest_, depth);
    objects_.begin(number);
    open_.push_back({number, {}});
    auto value = objectAt(item, depth);
    open_.pop_back();
    const unsigned height = deepest_ - depth;
    deepest_ = std::max(outerDeepest, deepest_);
    if (value) {
        objects_.finish(number, value.value(), height);
        return value;
    }
    // Cycles and depth depend on the way that led here; other damage stays.
    const FaultCode code = value.fault().code;
    if (code == FaultCode::Cyclic || code == FaultCode::TooDeep) {
        objects_.forget(number);
    } else {
        objects_.damage(number, placed(value.fault(), reference));
    }
    return value;
}

Result<Value> KeyedUnarchiver::Archive::objectAt(const BinaryItem& item, unsigned depth) {
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
    return table.list().equalsAscii(item, kNullName) ? Value() : decoder.scalar(item);
}

Result<Value> KeyedUnarchiver::Archive::instance(const Class& type, const BinaryItem& item,
                                                 unsigned depth) {
    const ArchivedObject object(unarchiver_, item, depth);
    return type.decode != nullptr ? type.decode(object) : opaqueObject(item, depth);
}

/// Decodes a field of an opaque object, with the form in which it stands.
Result<OpaqueField> KeyedUnarchiver::Archive::opaqueField(std::uint64_t number, unsigned depth) {
    const BinaryItem content = PV_TRY(table.list().itemAt(number));
    const bool outerHasReference = std::exchange(hasReference_, false);
    OpaqueField field;
    field.value = PV_TRY(valueOfItem(content, number, depth));
    if (table.referenceOf(content)) {
        field.form = FieldForm::Reference;
    } else if (isContainer(content) && hasReference_) {
        field.form = FieldForm::InlineOfReferences;
    }
    hasReference_ = outerHasReference;
    return field;
}

Result<Value> KeyedUnarchiver::Archive::opaqueObject(const BinaryItem& item, unsigned depth) {
    PV_TRY(budget.charge(item.count, sizeof(OpaqueField)));
    const auto opaque = std::make_shared<OpaqueObject>();
    open_.back().unfinished = opaque;
    if (const Class* const type = PV_TRY(classOf(item))) {
        opaque->type = type->names;
    }
    const BinaryPropertyList& list = table.list();
    opaque->fields.reserve(item.count);
    for (std::uint64_t i = 0; i < item.count; ++i) {
        std::string name = PV_TRY(decoder.keyAt(list.keyAt(item, i)));
        if (name != "$class") {
            opaque->fields.push_back(PV_TRY(opaqueField(list.valueAt(item, i), depth + 1)));
            opaque->fields.back().name = std::move(name);
        }
    }
    return Value(std::shared_ptr<const Object>(opaque));
}

/// Whether the object is a string itself, not an instance of a class of strings.
bool KeyedUnarchiver::Archive::isStringReference(std::uint64_t reference) const {
    const auto number = table.numberOfReference(reference);
    if (!number) {
        return false;
    }
    const auto item = table.list().itemAt(number.value());
    return item && (item.value().kind == BinaryKind::AsciiString ||
                    item.value().kind == BinaryKind::Utf16String);
}

Result<SharedKeys> KeyedUnarchiver::Archive::sharedKeys(const BinaryItem& item, unsigned depth) {
    std::array<std::uint64_t, KeyLists::kMostKeys> buffer;
    if (item.count == 0 || item.count > buffer.size()) {
        return SharedKeys();
    }
    const std::span references(buffer.data(), item.count);
    for (std::uint64_t i = 0; i < item.count; ++i) {
        const auto reference = table.list().uidAt(table.list().elementAt(item, i));
        if (!reference) {
            return SharedKeys();
        }
        references[i] = *reference;
    }
    PV_TRY(reach(depth));
    if (auto keys = keyLists_.find(references)) {
        return keys;
    }
    std::vector<std::string> names;
    for (const std::uint64_t reference : references) {
        auto name = isStringReference(reference)
                        ? PV_TRY(objectOfReference(reference, depth)).utf8()
                        : std::nullopt;
        if (!name) {
            return SharedKeys();
        }
        PV_TRY(budget.charge(name->size()));
        names.push_back(std::move(*name));
    }
    auto keys = DictionaryKeys::shared(std::move(names));
    keyLists_.keep(references, keys);
    return keys;
}

Result<const KeyedUnarchiver::Archive::Class*> KeyedUnarchiver::Archive::classOf(
    const BinaryItem& item) {
    const auto field = valueNumber(item, "$class");
    if (!field) {
        return field.fault();
    }
    if (!field.value()) {
        return nullptr;
    }
    auto reference = table.list().uidAt(*field.value());
    if (!reference) {
        reference = table.referenceOf(PV_TRY(table.list().itemAt(*field.value())));
    }
    if (!reference) {
        return Fault{FaultCode::Malformed, "$class that is no reference"};
    }
    RecentClass& recent = recentClasses_[*reference % recentClasses_.size()];
    if (recent.type == nullptr || recent.reference != *reference) {
        recent = {*reference, PV_TRY(classNamedBy(*reference))};
    }
    return recent.type;
}

Result<const KeyedUnarchiver::Archive::Class*> KeyedUnarchiver::Archive::classNamedBy(
    std::uint64_t reference) {
    const std::uint64_t number = PV_TRY(table.numberOfReference(reference));
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

}  // namespace platform
