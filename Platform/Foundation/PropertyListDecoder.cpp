#include "Platform/Foundation/PropertyListDecoder.h"

#include <algorithm>
#include <bit>
#include <string>
#include <utility>
#include <vector>

namespace platform {
namespace {

// A list whose objects do not overlap needs one size; readers that decode an object in two ways
// need a little more.
constexpr std::uint64_t kBuildFactor = 4;

// Dictionaries keep keys of their own: of a long key that many of them share, what goes beyond this
// counts each time.
constexpr std::uint64_t kFreeKeyBytes = 32;

bool isContainer(const BinaryItem& item) {
    return item.kind == BinaryKind::Array || item.kind == BinaryKind::Dictionary;
}

}  // namespace

PropertyListDecoder::PropertyListDecoder(const BinaryPropertyList& list)
    : list_(list), remaining_(list.size() * kBuildFactor) {
}

Outcome PropertyListDecoder::charge(std::uint64_t bytes) {
    if (bytes > remaining_) {
        return Fault{FaultCode::Malformed, "objects share their bytes"};
    }
    remaining_ -= bytes;
    return done();
}

Outcome PropertyListDecoder::chargeKey(std::string_view key) {
    return charge(key.size() - std::min<std::uint64_t>(key.size(), kFreeKeyBytes));
}

Result<Value> PropertyListDecoder::valueAt(std::uint64_t index) {
    return build(index, 0);
}

Result<Value> PropertyListDecoder::build(std::uint64_t index, unsigned depth) {
    if (depth > kMaxPropertyListDepth) {
        return Fault{FaultCode::TooDeep,
                     "nested deeper than " + std::to_string(kMaxPropertyListDepth) + " levels"};
    }
    if (const auto known = values_.find(index); known != values_.end()) {
        if (!known->second) {
            return Fault{FaultCode::Cyclic, "object " + std::to_string(index) + " contains itself"};
        }
        return *known->second;
    }
    const BinaryItem item = PV_TRY(list_.itemAt(index));
    PV_TRY(charge(item.bytes.length));
    if (!isContainer(item)) {
        Value value = PV_TRY(scalar(item));
        // Small scalars are made again as cheaply as they are found again.
        if (item.bytes.length > 0) {
            values_.emplace(index, value);
        }
        return value;
    }
    values_.emplace(index, std::nullopt);
    Value value = PV_TRY(buildContainer(item, depth));
    values_[index] = value;
    return value;
}

Result<Value> PropertyListDecoder::buildContainer(const BinaryItem& item, unsigned depth) {
    if (item.kind == BinaryKind::Array) {
        Array array;
        array.reserve(item.count);
        for (std::uint64_t i = 0; i < item.count; ++i) {
            array.push_back(PV_TRY(build(list_.elementAt(item, i), depth + 1)));
        }
        return Value(std::move(array));
    }
    std::vector<Dictionary::Entry> entries;
    entries.reserve(item.count);
    for (std::uint64_t i = 0; i < item.count; ++i) {
        const Value key = PV_TRY(build(list_.keyAt(item, i), depth + 1));
        auto name = key.utf8();
        if (!name) {
            return Fault{FaultCode::Malformed, "dictionary key that is no string"};
        }
        PV_TRY(chargeKey(*name));
        entries.emplace_back(std::move(*name), PV_TRY(build(list_.valueAt(item, i), depth + 1)));
    }
    return Value(Dictionary(std::move(entries)));
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
            return Value(list_.dataOf(item));
        case BinaryKind::Uid:
            return Value(Uid{item.bits});
        default:
            return Value(list_.stringOf(item));
    }
}

}  // namespace platform
