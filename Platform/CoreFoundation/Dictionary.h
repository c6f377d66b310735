// The class behind CFDictionaryRef. One thread at a time while it changes, any thread after that.

#pragma once

#include <cstddef>
#include <unordered_map>

#include "Platform/CoreFoundation/Array.h"
#include "Platform/CoreFoundation/CFDictionary.h"
#include "Platform/CoreFoundation/Object.h"

namespace platform::cf {

class Dictionary final : public PlainObject<Dictionary> {
public:
    static constexpr TypeID kType = TypeID::Dictionary;

    /// Both call-backs may be null.
    Dictionary(Changes changes, const CFDictionaryKeyCallBacks* keyCallBacks,
               const CFDictionaryValueCallBacks* valueCallBacks);
    ~Dictionary();

    [[nodiscard]] bool canChange() const noexcept { return changes_ == Changes::Allowed; }
    [[nodiscard]] const auto& pairs() const noexcept { return pairs_; }

    /// The place of the value under `key`, null when there is none.
    [[nodiscard]] const void* const* find(const void* key) const;

    /// These throw std::bad_alloc and leave the dictionary as it was.
    void add(const void* key, const void* value);
    void set(const void* key, const void* value);

    void remove(const void* key);
    void removeAll();

    [[nodiscard]] bool isEqual(const Object& other) const noexcept override;
    [[nodiscard]] CFHashCode hash() const noexcept override { return pairs_.size(); }

private:
    struct KeyHash {
        CFDictionaryHashCallBack callBack;
        std::size_t operator()(const void* key) const {
            return callBack == nullptr ? std::hash<const void*>()(key) : callBack(key);
        }
    };
    struct KeyEqual {
        CFDictionaryEqualCallBack callBack;
        bool operator()(const void* first, const void* second) const {
            return first == second || (callBack != nullptr && callBack(first, second));
        }
    };
    using Pairs = std::unordered_map<const void*, const void*, KeyHash, KeyEqual>;

    // A key that the call-backs cannot be asked about.
    [[nodiscard]] bool isNoKey(const void* key) const noexcept {
        return key == nullptr && keys_.hash != nullptr;
    }
    [[nodiscard]] const void* retained(const void* value) const;
    void release(const void* value) const;
    void releaseKey(const void* key) const;

    Changes changes_;
    CFDictionaryKeyCallBacks keys_;
    CFDictionaryValueCallBacks values_;
    Pairs pairs_;
};

inline CFMutableDictionaryRef refOf(Dictionary* dictionary) noexcept {
    return reinterpret_cast<CFMutableDictionaryRef>(dictionary);
}

}  // namespace platform::cf
