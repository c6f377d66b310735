#include "Platform/Foundation/ArchivedObject.h"

#include <utility>

#include "Platform/Foundation/KeyedUnarchiverArchive.h"
#include "Platform/Foundation/Unicode.h"

namespace platform {
namespace {

Fault wrongType(std::string_view key, std::string_view wanted) {
    return {FaultCode::Malformed, std::string(key) + " that is no " + std::string(wanted)};
}

}  // namespace

Result<std::optional<std::uint64_t>> ArchivedObject::valueNumberForKey(std::string_view key) const {
    return archive().table.valueNumber(item_, KeyedArchiveTable::spelling(key));
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

Result<std::optional<ArchivedObject::Elements>> ArchivedObject::elementsForKey(
    std::string_view key) const {
    const auto number = PV_TRY(valueNumberForKey(key));
    if (!number) {
        return std::optional<Elements>();
    }
    const KeyedArchiveTable& table = archive().table;
    BinaryItem item = PV_TRY(table.list().itemAt(*number));
    if (const auto reference = table.referenceOf(item)) {
        item = PV_TRY(table.list().itemAt(PV_TRY(table.numberOfReference(*reference))));
        if (item.kind != BinaryKind::Dictionary) {
            return std::optional<Elements>();
        }
        // A dictionary has keys beside its objects; those are not elements.
        const auto objects = PV_TRY(table.valueNumber(item, "NS.objects"));
        const auto keys = PV_TRY(table.valueNumber(item, "NS.keys"));
        if (!objects || keys) {
            return std::optional<Elements>();
        }
        item = PV_TRY(table.list().itemAt(*objects));
    }
    if (item.kind != BinaryKind::Array) {
        return std::optional<Elements>();
    }
    return std::optional<Elements>(Elements(unarchiver_, item, depth_ + 1));
}

Result<Value> ArchivedObject::Elements::objectAt(std::uint64_t position) const {
    if (position >= item_.count) {
        return Fault{FaultCode::Malformed,
                     "element " + std::to_string(position) + " of " + std::to_string(item_.count)};
    }
    KeyedUnarchiver::Archive& archive = *unarchiver_.archive_;
    return archive.valueOfNumber(archive.table.list().elementAt(item_, position), depth_ + 1);
}

Outcome ArchivedObject::chargeKey(std::string_view key) const {
    return archive().decoder.chargeKey(key);
}

Result<Value> ArchivedObject::opaque() const {
    return archive().opaqueObject(*this, item_);
}

Result<std::string> ArchivedObject::keyAt(std::uint64_t position) const {
    const BinaryPropertyList& list = archive().table.list();
    const Value key = PV_TRY(archive().decoder.valueAt(list.keyAt(item_, position)));
    auto text = key.utf8();
    if (!text) {
        return Fault{FaultCode::Malformed, "dictionary key that is no string"};
    }
    PV_TRY(chargeKey(*text));
    return std::move(*text);
}

Result<Value> ArchivedObject::valueAt(std::uint64_t position) const {
    return archive().valueOfNumber(archive().table.list().valueAt(item_, position), depth_ + 1);
}

}  // namespace platform
