// Values found by key: objects, or any pointers.
//
// A dictionary of objects owns its keys and values while they are in it; objects that are equal are
// one key. Neither can be NULL in one.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"

CF_EXTERN_C_BEGIN

typedef const struct __CFDictionary* CFDictionaryRef;
typedef struct __CFDictionary* CFMutableDictionaryRef;

typedef const void* (*CFDictionaryRetainCallBack)(CFAllocatorRef allocator, const void* value);
typedef void (*CFDictionaryReleaseCallBack)(CFAllocatorRef allocator, const void* value);
typedef CFStringRef (*CFDictionaryCopyDescriptionCallBack)(const void* value);
typedef Boolean (*CFDictionaryEqualCallBack)(const void* value1, const void* value2);
typedef CFHashCode (*CFDictionaryHashCallBack)(const void* value);
typedef void (*CFDictionaryApplierFunction)(const void* key, const void* value, void* context);

/// What a dictionary does with its keys; each function may be NULL: keys are then taken as they
/// are, compared and hashed as pointers.
typedef struct {
    CFIndex version;
    CFDictionaryRetainCallBack retain;
    CFDictionaryReleaseCallBack release;
    CFDictionaryCopyDescriptionCallBack copyDescription;
    CFDictionaryEqualCallBack equal;
    CFDictionaryHashCallBack hash;
} CFDictionaryKeyCallBacks;

/// The same for its values.
typedef struct {
    CFIndex version;
    CFDictionaryRetainCallBack retain;
    CFDictionaryReleaseCallBack release;
    CFDictionaryCopyDescriptionCallBack copyDescription;
    CFDictionaryEqualCallBack equal;
} CFDictionaryValueCallBacks;

/// For dictionaries of objects.
CF_EXPORT const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks;
CF_EXPORT const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks;

CF_EXPORT CFTypeID CFDictionaryGetTypeID(void);

/// Returns a dictionary of these pairs that cannot change; of equal keys the first one's value
/// stays. Both call-backs may be NULL.
CF_EXPORT CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys,
                                             const void** values, CFIndex numValues,
                                             const CFDictionaryKeyCallBacks* keyCallBacks,
                                             const CFDictionaryValueCallBacks* valueCallBacks);

/// Returns an empty dictionary. `capacity` is a hint and may be 0, both call-backs may be NULL.
CF_EXPORT CFMutableDictionaryRef CFDictionaryCreateMutable(
    CFAllocatorRef allocator, CFIndex capacity, const CFDictionaryKeyCallBacks* keyCallBacks,
    const CFDictionaryValueCallBacks* valueCallBacks);

CF_EXPORT CFIndex CFDictionaryGetCount(CFDictionaryRef theDict);

/// Tells whether there is a value under `key`, never under NULL in a dictionary of objects.
CF_EXPORT Boolean CFDictionaryContainsKey(CFDictionaryRef theDict, const void* key);

/// Returns the value under `key`, NULL when there is none.
CF_EXPORT const void* CFDictionaryGetValue(CFDictionaryRef theDict, const void* key);

/// Tells whether there is a value under `key`, and leaves it in `value` unless that is NULL.
CF_EXPORT Boolean CFDictionaryGetValueIfPresent(CFDictionaryRef theDict, const void* key,
                                                const void** value);

/// Writes all keys and their values, in one order, to arrays of CFDictionaryGetCount places; each
/// may be NULL.
CF_EXPORT void CFDictionaryGetKeysAndValues(CFDictionaryRef theDict, const void** keys,
                                            const void** values);

/// Calls `applier` with each pair. Requires: it does not change the dictionary.
CF_EXPORT void CFDictionaryApplyFunction(CFDictionaryRef theDict,
                                         CFDictionaryApplierFunction applier, void* context);

/// Puts `value` under `key` unless there is one already. Requires: the dictionary can change.
CF_EXPORT void CFDictionaryAddValue(CFMutableDictionaryRef theDict, const void* key,
                                    const void* value);

/// Puts `value` under `key`, in place of the one there. Requires: the dictionary can change.
CF_EXPORT void CFDictionarySetValue(CFMutableDictionaryRef theDict, const void* key,
                                    const void* value);

/// Takes the value under `key` out, if there is one. Requires: the dictionary can change.
CF_EXPORT void CFDictionaryRemoveValue(CFMutableDictionaryRef theDict, const void* key);

/// Takes all values out. Requires: the dictionary can change.
CF_EXPORT void CFDictionaryRemoveAllValues(CFMutableDictionaryRef theDict);

CF_EXTERN_C_END
