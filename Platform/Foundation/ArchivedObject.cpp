#include "Platform/Foundation/ArchivedObject.h"

#include <charconv>
#include <map>
#include <utility>

#include "Platform/Foundation/KeyedUnarchiverArchive.h"

namespace platform {
namespace {

Fault wrongType(std::string_view key, std::string_view wanted) {
    return {FaultCode::Malformed, std::string(key) + " that is no " + std::string(wanted)};
}

/// The number in a key such as "NS.object.3"; nothing when the key is another.
std::optional<std::uint64_t> numberInKey(std::string_view key, std::string_view prefix) {
    std::uint64_t number = 0;
    if (!key.starts_with(prefix)) {
        return std::nullopt;
    }
    const char* const end = key.data() + key.size();
    const auto [stop, error] = std::from_chars(key.data() + prefix.size(), end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

Result<std::optional<std::uint64_t>> ArchivedObject::valueNumberForKey(std::string_view key) const {
    return key.starts_with('$') ? archive().valueNumber(item_, KeyedArchiveTable::spelling(key))
                                : archive().valueNumber(item_, key);
}

bool ArchivedObject::containsValueForKey(std::string_view key) const {
    const auto number = valueNumberForKey(key);
    return number && number.value().has_value();
}

Result<Value> ArchivedObject::objectForKey(std::string_view key) const {
    const auto number = PV_TRY(valueNumberForKey(key));
    if (!number) {
        return Value();
    }
    return archive().valueOfNumber(*number, depth_ + 1);
}

Result<std::shared_ptr<const std::u16string>> ArchivedObject::stringForKey(
    std::string_view key) const {
    const Value value = PV_TRY(objectForKey(key));
    auto text = value.sharedString();
    if (!text && !value.isNull()) {
        return wrongType(key, "string");
    }
    return text;
}

Result<std::optional<Data>> ArchivedObject::dataForKey(std::string_view key) const {
    const Value value = PV_TRY(objectForKey(key));
    if (const Data* const data = value.data()) {
        return std::optional<Data>(*data);
    }
    if (!value.isNull()) {
        return wrongType(key, "data");
    }
    return std::optional<Data>();
}

Result<std::int64_t> ArchivedObject::integerForKey(std::string_view key) const {
    const Value value = PV_TRY(objectForKey(key));
    const auto integer = value.string() == nullptr ? value.integerValue() : std::nullopt;
    if (!integer && !value.isNull()) {
        return wrongType(key, "number");
    }
    return integer.value_or(0);
}

Result<std::optional<ArchivedObject::Elements>> ArchivedObject::elementsForKey(
    std::string_view key) const {
    const auto number = PV_TRY(valueNumberForKey(key));
    if (!number) {
        return std::optional<Elements>();
    }
    const KeyedArchiveTable& table = archive().table;
    const BinaryItem item = PV_TRY(table.list().itemAt(*number));
    const auto reference = table.referenceOf(item);
    if (!reference) {
        return item.kind == BinaryKind::Array
                   ? std::optional<Elements>(Elements(unarchiver_, item, depth_ + 1))
                   : std::optional<Elements>();
    }
    const BinaryItem target =
        PV_TRY(table.list().itemAt(PV_TRY(table.numberOfReference(*reference))));
    if (target.kind != BinaryKind::Dictionary) {
        return std::optional<Elements>();
    }
    PV_TRY(charge(target.bytes.length));
    const ArchivedObject array(unarchiver_, target, depth_ + 1);
    // A dictionary has keys beside its objects; those are no elements.
    if (array.containsValueForKey("NS.keys") || array.containsValueForKey("NS.key.0")) {
        return std::optional<Elements>();
    }
    return std::optional<Elements>(PV_TRY(array.elements("NS.objects", "NS.object.")));
}

Outcome ArchivedObject::readElements(std::string_view key, std::string_view prefix,
                                     Elements& elements) const {
    const KeyedArchiveTable& table = archive().table;
    const auto array = valueNumberForKey(key);
    if (!array) {
        return array.fault();
    }
    if (array.value()) {
        PV_TRY(table.list().readItem(*array.value(), elements.item_));
        return elements.item_.kind == BinaryKind::Array ? done() : wrongType(key, "array");
    }
    std::map<std::uint64_t, std::uint64_t> numbered;
    for (std::uint64_t i = 0; i < item_.count; ++i) {
        if (const auto number = numberInKey(PV_TRY(keyAt(i)), prefix)) {
            numbered.insert_or_assign(*number, table.list().valueAt(item_, i));
        }
    }
    elements.isNumbered_ = true;
    for (const auto& [number, value] : numbered) {
        if (number != elements.numbers_.size()) {
            break;
        }
        elements.numbers_.push_back(value);
    }
    return done();
}

Result<Value> ArchivedObject::Elements::objectAt(std::uint64_t position) const {
    if (position >= count()) {
        return Fault{FaultCode::Malformed,
                     "element " + std::to_string(position) + " of " + std::to_string(count())};
    }
    KeyedUnarchiver::Archive& archive = *unarchiver_.archive_;
    return archive.valueOfNumber(
        isNumbered_ ? numbers_[position] : archive.table.list().elementAt(item_, position),
        depth_ + 1);
}

Result<SharedKeys> ArchivedObject::sharedKeys(const Elements& keys) const {
    if (keys.isNumbered_) {
        return SharedKeys();
    }
    return archive().sharedKeys(keys.item_, keys.depth_ + 1);
}

Outcome ArchivedObject::charge(std::uint64_t count, std::uint64_t size) const {
    return archive().budget.charge(count, size);
}

BuildBudget& ArchivedObject::budget() const {
    return archive().budget;
}

Result<Value> ArchivedObject::opaque() const {
    return archive().opaqueObject(item_, depth_);
}

Result<std::string> ArchivedObject::keyAt(std::uint64_t position) const {
    return archive().decoder.keyAt(archive().table.list().keyAt(item_, position));
}

}  // namespace platform
