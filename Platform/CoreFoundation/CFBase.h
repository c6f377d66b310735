// The basic types of the library, and what can be done with an object of any type.
//
// The conventions (who frees, failures, threads) stand in CoreFoundation.h.

#pragma once

#include <stdint.h>

#ifdef __cplusplus
#define CF_EXTERN_C_BEGIN extern "C" {
#define CF_EXTERN_C_END }
#else
#define CF_EXTERN_C_BEGIN
#define CF_EXTERN_C_END
#endif

#define CF_EXPORT extern __attribute__((visibility("default")))

CF_EXTERN_C_BEGIN

typedef unsigned char Boolean;
typedef uint8_t UInt8;
typedef int8_t SInt8;
typedef uint16_t UInt16;
typedef int16_t SInt16;
typedef uint32_t UInt32;
typedef int32_t SInt32;
typedef uint64_t UInt64;
typedef int64_t SInt64;
typedef float Float32;
typedef double Float64;

/// One UTF-16 unit.
typedef UInt16 UniChar;

typedef signed long CFIndex;
typedef unsigned long CFTypeID;
typedef unsigned long CFHashCode;
typedef unsigned long CFOptionFlags;

/// What a search answers that finds nothing.
enum { kCFNotFound = -1 };

typedef struct {
    CFIndex location;
    CFIndex length;
} CFRange;

static inline CFRange CFRangeMake(CFIndex location, CFIndex length) {
    CFRange range;
    range.location = location;
    range.length = length;
    return range;
}

/// An object of any type.
typedef const void* CFTypeRef;

typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFString* CFStringRef;

/// NULL: the only allocator there is.
CF_EXPORT const CFAllocatorRef kCFAllocatorDefault;

/// Returns a number that tells the type of `cf`, to be compared with the answer of one of the
/// ...GetTypeID functions; it can differ from one build of the library to the next.
CF_EXPORT CFTypeID CFGetTypeID(CFTypeRef cf);

/// Makes the caller one more owner of `cf`, which it returns.
CF_EXPORT CFTypeRef CFRetain(CFTypeRef cf);

/// Gives one ownership of `cf` back; with the last one the object goes. Requires: the caller has an
/// ownership to give.
CF_EXPORT void CFRelease(CFTypeRef cf);

/// Returns the number of owners, a very large number for objects that never go.
CF_EXPORT CFIndex CFGetRetainCount(CFTypeRef cf);

/// Tells whether both objects are of one type and hold the same value. Numbers compare by value
/// whatever their width, strings unit by unit.
CF_EXPORT Boolean CFEqual(CFTypeRef cf1, CFTypeRef cf2);

/// Returns the same number for equal objects.
CF_EXPORT CFHashCode CFHash(CFTypeRef cf);

CF_EXTERN_C_END
