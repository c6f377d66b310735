// Immutable bytes.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"

CF_EXTERN_C_BEGIN

typedef const struct __CFData* CFDataRef;

CF_EXPORT CFTypeID CFDataGetTypeID(void);

/// Returns a copy of `length` bytes, NULL when `length` is negative.
CF_EXPORT CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex length);

CF_EXPORT CFIndex CFDataGetLength(CFDataRef theData);

/// Returns the bytes, which live as long as `theData`.
CF_EXPORT const UInt8* CFDataGetBytePtr(CFDataRef theData);

CF_EXTERN_C_END
