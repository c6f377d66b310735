#include "Platform/CoreFoundation/CFDictionary.h"

#include <memory>

#include "Platform/CoreFoundation/Dictionary.h"
#include "Platform/CoreFoundation/TypeCallBacks.h"

static_assert(sizeof(CFDictionaryKeyCallBacks) == 48 && sizeof(CFDictionaryValueCallBacks) == 40);

namespace platform::cf {
namespace {

Dictionary& changeable(CFMutableDictionaryRef ref, const char* function) {
    const auto& dictionary = objectAs<Dictionary>(ref, function);
    expect(dictionary.canChange(), function);
    return const_cast<Dictionary&>(dictionary);
}

}  // namespace
}  // namespace platform::cf

using platform::cf::changeable;
using platform::cf::Changes;
using platform::cf::Dictionary;
using platform::cf::objectAs;
using platform::cf::orEnd;
using platform::cf::orNull;
using platform::cf::releaseForCollection;
using platform::cf::retainForCollection;
using platform::cf::TypeID;

extern "C" {

const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks = {
    0, retainForCollection, releaseForCollection, nullptr, CFEqual, CFHash};

const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks = {
    0, retainForCollection, releaseForCollection, nullptr, CFEqual};

CFTypeID CFDictionaryGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::Dictionary);
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void** keys, const void** values,
                                   CFIndex numValues, const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks) {
    if (numValues < 0 || (numValues > 0 && (keys == nullptr || values == nullptr))) {
        return nullptr;
    }
    return orNull([&]() -> CFDictionaryRef {
        auto made = std::make_unique<Dictionary>(Changes::Never, keyCallBacks, valueCallBacks);
        for (CFIndex i = 0; i < numValues; ++i) {
            made->add(keys[i], values[i]);
        }
        return refOf(made.release());
    });
}

CFMutableDictionaryRef CFDictionaryCreateMutable(CFAllocatorRef, CFIndex,
                                                 const CFDictionaryKeyCallBacks* keyCallBacks,
                                                 const CFDictionaryValueCallBacks* valueCallBacks) {
    return orNull(
        [&] { return refOf(new Dictionary(Changes::Allowed, keyCallBacks, valueCallBacks)); });
}

CFIndex CFDictionaryGetCount(CFDictionaryRef theDict) {
    return static_cast<CFIndex>(
        objectAs<Dictionary>(theDict, "CFDictionaryGetCount").pairs().size());
}

Boolean CFDictionaryContainsKey(CFDictionaryRef theDict, const void* key) {
    return objectAs<Dictionary>(theDict, "CFDictionaryContainsKey").find(key) != nullptr;
}

const void* CFDictionaryGetValue(CFDictionaryRef theDict, const void* key) {
    const void* const* place = objectAs<Dictionary>(theDict, "CFDictionaryGetValue").find(key);
    return place == nullptr ? nullptr : *place;
}

Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef theDict, const void* key,
                                      const void** value) {
    const void* const* place =
        objectAs<Dictionary>(theDict, "CFDictionaryGetValueIfPresent").find(key);
    if (place != nullptr && value != nullptr) {
        *value = *place;
    }
    return place != nullptr;
}

void CFDictionaryGetKeysAndValues(CFDictionaryRef theDict, const void** keys, const void** values) {
    const auto& dictionary = objectAs<Dictionary>(theDict, "CFDictionaryGetKeysAndValues");
    for (const auto& [key, value] : dictionary.pairs()) {
        if (keys != nullptr) {
            *keys++ = key;
        }
        if (values != nullptr) {
            *values++ = value;
        }
    }
}

void CFDictionaryApplyFunction(CFDictionaryRef theDict, CFDictionaryApplierFunction applier,
                               void* context) {
    const auto& dictionary = objectAs<Dictionary>(theDict, "CFDictionaryApplyFunction");
    for (const auto& [key, value] : dictionary.pairs()) {
        applier(key, value, context);
    }
}

void CFDictionaryAddValue(CFMutableDictionaryRef theDict, const void* key, const void* value) {
    Dictionary& dictionary = changeable(theDict, "CFDictionaryAddValue");
    orEnd([&] { dictionary.add(key, value); });
}

void CFDictionarySetValue(CFMutableDictionaryRef theDict, const void* key, const void* value) {
    Dictionary& dictionary = changeable(theDict, "CFDictionarySetValue");
    orEnd([&] { dictionary.set(key, value); });
}

void CFDictionaryRemoveValue(CFMutableDictionaryRef theDict, const void* key) {
    changeable(theDict, "CFDictionaryRemoveValue").remove(key);
}

void CFDictionaryRemoveAllValues(CFMutableDictionaryRef theDict) {
    changeable(theDict, "CFDictionaryRemoveAllValues").removeAll();
}

}  // extern "C"
