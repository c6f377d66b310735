#include "Platform/Foundation/FieldFinder.h"

#include <utility>

namespace platform {
namespace {

// Larger objects are few, or hostile.
constexpr std::uint64_t kMostKeys = 32;

}  // namespace

Result<std::optional<std::uint64_t>> FieldFinder::valueNumber(const BinaryItem& dictionary,
                                                              std::string_view key) {
    const Make* const make = makeOf(dictionary);
    if (make == nullptr) {
        return table_.valueNumber(dictionary, key);
    }
    for (std::uint64_t i = 0; i < make->keys.size(); ++i) {
        if (make->keys[i] == key) {
            return std::optional<std::uint64_t>(table_.list().valueAt(dictionary, i));
        }
    }
    return std::optional<std::uint64_t>();
}

/// The make of `dictionary`; null when it is not one to be kept. An object is mostly asked for
/// several fields, one after the other.
const FieldFinder::Make* FieldFinder::makeOf(const BinaryItem& dictionary) {
    if (dictionary.bytes != last_) {
        lastMake_ = findMake(dictionary);
        last_ = dictionary.bytes;
    }
    return lastMake_;
}

const FieldFinder::Make* FieldFinder::findMake(const BinaryItem& dictionary) {
    const std::uint64_t count = dictionary.count;
    if (count == 0 || count > kMostKeys) {
        return nullptr;
    }
    const BinaryPropertyList& list = table_.list();
    const std::string_view references =
        list.bytesOf(dictionary).substr(0, dictionary.bytes.length / 2);
    const std::uint64_t mix = list.keyAt(dictionary, 0) * 31 + list.keyAt(dictionary, count - 1);
    Make& make = makes_[(mix * 31 + count) % makes_.size()];
    if (make.references == references) {
        return &make;
    }
    Make other;
    if (!readKeys(dictionary, other)) {
        return nullptr;
    }
    other.references = references;
    make = std::move(other);
    return &make;
}

/// Reads keys that are plain ASCII, as all of an archiver's are; false when any is not.
bool FieldFinder::readKeys(const BinaryItem& dictionary, Make& make) const {
    const BinaryPropertyList& list = table_.list();
    for (std::uint64_t i = 0; i < dictionary.count; ++i) {
        const auto key = list.itemAt(list.keyAt(dictionary, i));
        if (!key || key.value().kind != BinaryKind::AsciiString) {
            return false;
        }
        make.keys.push_back(list.bytesOf(key.value()));
    }
    return true;
}

}  // namespace platform
