#include "Platform/CoreFoundation/Dictionary.h"

namespace platform::cf {

Dictionary::Dictionary(Changes changes, const CFDictionaryKeyCallBacks* keyCallBacks,
                       const CFDictionaryValueCallBacks* valueCallBacks)
    : PlainObject(kType),
      changes_(changes),
      keys_(keyCallBacks == nullptr ? CFDictionaryKeyCallBacks{} : *keyCallBacks),
      values_(valueCallBacks == nullptr ? CFDictionaryValueCallBacks{} : *valueCallBacks),
      pairs_(0, KeyHash{keys_.hash}, KeyEqual{keys_.equal}) {
}

Dictionary::~Dictionary() {
    removeAll();
}

const void* const* Dictionary::find(const void* key) const {
    if (isNoKey(key)) {
        return nullptr;
    }
    const auto found = pairs_.find(key);
    return found == pairs_.end() ? nullptr : &found->second;
}

void Dictionary::add(const void* key, const void* value) {
    const auto [place, isNew] = pairs_.try_emplace(key, value);
    if (!isNew) {
        return;
    }
    place->second = retained(value);
    if (keys_.retain == nullptr) {
        return;
    }
    // The call-back may answer another, equal key: that is the one to keep.
    const void* const kept = keys_.retain(kCFAllocatorDefault, key);
    if (kept != key) {
        auto node = pairs_.extract(place);
        node.key() = kept;
        pairs_.insert(std::move(node));
    }
}

void Dictionary::set(const void* key, const void* value) {
    const auto found = pairs_.find(key);
    if (found == pairs_.end()) {
        add(key, value);
        return;
    }
    // The new value first: both can be the same object, owned by nobody else.
    const void* const old = found->second;
    found->second = retained(value);
    release(old);
}

void Dictionary::remove(const void* key) {
    const auto found = isNoKey(key) ? pairs_.end() : pairs_.find(key);
    if (found == pairs_.end()) {
        return;
    }
    const auto [oldKey, oldValue] = *found;
    pairs_.erase(found);
    releaseKey(oldKey);
    release(oldValue);
}

void Dictionary::removeAll() {
    Pairs old(0, pairs_.hash_function(), pairs_.key_eq());
    old.swap(pairs_);
    for (const auto& [key, value] : old) {
        releaseKey(key);
        release(value);
    }
}

bool Dictionary::isEqual(const Object& other) const noexcept {
    const auto& dictionary = static_cast<const Dictionary&>(other);
    if (pairs_.size() != dictionary.pairs_.size()) {
        return false;
    }
    for (const auto& [key, value] : pairs_) {
        const void* const* const place = dictionary.find(key);
        if (place == nullptr ||
            (*place != value && (values_.equal == nullptr || !values_.equal(value, *place)))) {
            return false;
        }
    }
    return true;
}

const void* Dictionary::retained(const void* value) const {
    return values_.retain == nullptr ? value : values_.retain(kCFAllocatorDefault, value);
}

void Dictionary::release(const void* value) const {
    if (values_.release != nullptr) {
        values_.release(kCFAllocatorDefault, value);
    }
}

void Dictionary::releaseKey(const void* key) const {
    if (keys_.release != nullptr) {
        keys_.release(kCFAllocatorDefault, key);
    }
}

}  // namespace platform::cf
