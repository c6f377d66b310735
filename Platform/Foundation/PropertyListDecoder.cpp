#include "Platform/Foundation/PropertyListDecoder.h"

#include <algorithm>
#include <bit>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

/// What a container or a string takes beside its contents, roughly.
constexpr std::uint64_t kObjectSize = 64;

bool isContainer(const BinaryItem& item) {
    return item.kind == BinaryKind::Array || item.kind == BinaryKind::Dictionary;
}

Fault tooDeep() {
    return {FaultCode::TooDeep,
            "nested deeper than " + std::to_string(kMaxPropertyListDepth) + " levels"};
}

}  // namespace

PropertyListDecoder::PropertyListDecoder(const BinaryPropertyList& list, BuildBudget& budget)
    : list_(list), budget_(budget) {
}

Result<Value> PropertyListDecoder::valueAt(std::uint64_t index) {
    return PV_TRY(build(index, 0)).value;
}

Result<std::string> PropertyListDecoder::keyAt(std::uint64_t index) {
    auto key = PV_TRY(valueAt(index)).utf8();
    if (!key) {
        return Fault{FaultCode::Malformed, "dictionary key that is no string"};
    }
    PV_TRY(budget_.charge(key->size()));
    return std::move(*key);
}

Result<PropertyListDecoder::Built> PropertyListDecoder::build(std::uint64_t index, unsigned depth) {
    if (const auto known = built_.find(index); known != built_.end()) {
        if (!known->second) {
            return Fault{FaultCode::Cyclic, "object " + std::to_string(index) + " contains itself"};
        }
        if (depth + known->second->height > kMaxPropertyListDepth) {
            return tooDeep();
        }
        return *known->second;
    }
    if (depth > kMaxPropertyListDepth) {
        return tooDeep();
    }
    const BinaryItem item = PV_TRY(list_.itemAt(index));
    if (!isContainer(item)) {
        Built built{PV_TRY(scalar(item)), 0};
        // Small scalars are made again as cheaply as they are found again.
        if (item.bytes.length > 0) {
            built_.emplace(index, built);
        }
        return built;
    }
    built_.emplace(index, std::nullopt);
    auto built =
        item.kind == BinaryKind::Array ? buildArray(item, depth) : buildDictionary(item, depth);
    if (!built) {
        built_.erase(index);
        return built;
    }
    built_[index] = built.value();
    return built;
}

Result<PropertyListDecoder::Built> PropertyListDecoder::buildArray(const BinaryItem& item,
                                                                   unsigned depth) {
    PV_TRY(budget_.charge(kObjectSize));
    PV_TRY(budget_.charge(item.count, sizeof(Value)));
    Array array;
    array.reserve(item.count);
    unsigned height = 0;
    for (std::uint64_t i = 0; i < item.count; ++i) {
        Built element = PV_TRY(build(list_.elementAt(item, i), depth + 1));
        height = std::max(height, element.height + 1);
        array.push_back(std::move(element.value));
    }
    return Built{Value(std::move(array)), height};
}

Result<PropertyListDecoder::Built> PropertyListDecoder::buildDictionary(const BinaryItem& item,
                                                                        unsigned depth) {
    PV_TRY(budget_.charge(kObjectSize));
    PV_TRY(budget_.charge(item.count, sizeof(Dictionary::Entry)));
    std::vector<Dictionary::Entry> entries;
    entries.reserve(item.count);
    unsigned height = 0;
    for (std::uint64_t i = 0; i < item.count; ++i) {
        std::string key = PV_TRY(keyAt(list_.keyAt(item, i)));
        Built value = PV_TRY(build(list_.valueAt(item, i), depth + 1));
        height = std::max(height, value.height + 1);
        entries.emplace_back(std::move(key), std::move(value.value));
    }
    return Built{Value(Dictionary(std::move(entries))), height};
}

Result<Value> PropertyListDecoder::scalar(const BinaryItem& item) {
    switch (item.kind) {
        case BinaryKind::Null:
            return Value();
        case BinaryKind::Boolean:
            return Value(item.bits != 0);
        case BinaryKind::Integer:
            return item.isUnsigned ? Value(item.bits) : Value(static_cast<std::int64_t>(item.bits));
        case BinaryKind::Real:
            return Value(std::bit_cast<double>(item.bits));
        case BinaryKind::Date:
            return Value(Date{std::bit_cast<double>(item.bits)});
        case BinaryKind::Data:
            PV_TRY(budget_.charge(kObjectSize));
            return Value(list_.dataOf(item));
        case BinaryKind::Uid:
            return Value(Uid{item.bits});
        default:
            PV_TRY(budget_.charge(kObjectSize));
            PV_TRY(budget_.charge(item.count, sizeof(char16_t)));
            return Value(PV_TRY(list_.stringOf(item)));
    }
}

}  // namespace platform
