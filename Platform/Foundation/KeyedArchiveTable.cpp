#include "Platform/Foundation/KeyedArchiveTable.h"

#include <utility>

#include "Platform/Foundation/BinaryPropertyListWriter.h"
#include "Platform/Foundation/XmlPropertyList.h"

namespace platform {
namespace {

Result<BinaryPropertyList> openInEitherForm(const Data& data) {
    if (BinaryPropertyList::hasSignature(data)) {
        return BinaryPropertyList::open(data);
    }
    const Value value = PV_TRY(valueFromXml(data));
    return BinaryPropertyList::open(PV_TRY(binaryPropertyListData(value)));
}

/// The strings in an array value, copied.
Result<std::vector<std::string>> stringsIn(const Value& value, BuildBudget& budget) {
    std::vector<std::string> strings;
    const Array* const array = value.array();
    if (array == nullptr) {
        return strings;
    }
    PV_TRY(budget.charge(array->size(), sizeof(std::string)));
    for (const Value& element : *array) {
        if (auto text = element.utf8()) {
            PV_TRY(budget.charge(text->size()));
            strings.push_back(std::move(*text));
        }
    }
    return strings;
}

}  // namespace

Result<KeyedArchiveTable> KeyedArchiveTable::open(const Data& data) {
    KeyedArchiveTable table(PV_TRY(openInEitherForm(data)));
    const BinaryItem root = PV_TRY(table.list_.itemAt(table.list_.topObject()));
    if (root.kind != BinaryKind::Dictionary) {
        return Fault{FaultCode::Malformed, "property list that is no keyed archive"};
    }
    const auto top = PV_TRY(table.valueNumber(root, "$top"));
    const auto objects = PV_TRY(table.valueNumber(root, "$objects"));
    if (!top || !objects) {
        return Fault{FaultCode::Malformed,
                     std::string("keyed archive without ") + (top ? "$objects" : "$top")};
    }
    table.top_ = PV_TRY(table.list_.itemAt(*top));
    table.objects_ = PV_TRY(table.list_.itemAt(*objects));
    if (table.top_.kind != BinaryKind::Dictionary) {
        return Fault{FaultCode::Malformed, "$top that is no dictionary"};
    }
    if (table.objects_.kind != BinaryKind::Array) {
        return Fault{FaultCode::Malformed, "$objects that is no array"};
    }
    return table;
}

Result<std::uint64_t> KeyedArchiveTable::numberOfReference(std::uint64_t reference) const {
    if (reference >= objects_.count) {
        return Fault{FaultCode::Malformed, "reference " + std::to_string(reference) + " of " +
                                               std::to_string(objects_.count)};
    }
    return list_.elementAt(objects_, reference);
}

std::optional<std::uint64_t> KeyedArchiveTable::referenceOf(const BinaryItem& item) const {
    if (item.kind == BinaryKind::Uid) {
        return item.bits;
    }
    if (item.kind != BinaryKind::Dictionary || item.count != 1) {
        return std::nullopt;
    }
    const auto key = list_.itemAt(list_.keyAt(item, 0));
    const auto value = list_.itemAt(list_.valueAt(item, 0));
    const bool isReference = key && value && list_.equalsAscii(key.value(), "CF$UID") &&
                             value.value().kind == BinaryKind::Integer;
    return isReference ? std::optional<std::uint64_t>(value.value().bits) : std::nullopt;
}

std::string KeyedArchiveTable::spelling(std::string_view key) {
    return (key.starts_with('$') ? "$" : "") + std::string(key);
}

Result<std::optional<std::uint64_t>> KeyedArchiveTable::valueNumber(const BinaryItem& dictionary,
                                                                    std::string_view key) const {
    for (std::uint64_t i = 0; i < dictionary.count; ++i) {
        const BinaryItem name = PV_TRY(list_.itemAt(list_.keyAt(dictionary, i)));
        if (list_.equalsAscii(name, key)) {
            return std::optional<std::uint64_t>(list_.valueAt(dictionary, i));
        }
    }
    return std::optional<std::uint64_t>();
}

Result<ArchivedClassNames> KeyedArchiveTable::classNames(const Value& entry, BuildBudget& budget) {
    const Dictionary* const fields = entry.dictionary();
    auto name = fields != nullptr ? (*fields)["$classname"].utf8() : std::nullopt;
    if (!name) {
        return Fault{FaultCode::Malformed, "$class that leads to no class"};
    }
    ArchivedClassNames names{PV_TRY(stringsIn((*fields)["$classes"], budget)),
                             PV_TRY(stringsIn((*fields)["$classhints"], budget))};
    if (names.names.empty() || names.names.front() != *name) {
        names.names.insert(names.names.begin(), std::move(*name));
    }
    return names;
}

}  // namespace platform
