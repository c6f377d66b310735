// Universally unique identifiers, unique by value: there is one object for each sixteen bytes, so
// that identifiers can be compared as pointers.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"

CF_EXTERN_C_BEGIN

typedef const struct __CFUUID* CFUUIDRef;

/// The sixteen bytes in the order in which they are written; passed by value.
typedef struct {
    UInt8 byte0;
    UInt8 byte1;
    UInt8 byte2;
    UInt8 byte3;
    UInt8 byte4;
    UInt8 byte5;
    UInt8 byte6;
    UInt8 byte7;
    UInt8 byte8;
    UInt8 byte9;
    UInt8 byte10;
    UInt8 byte11;
    UInt8 byte12;
    UInt8 byte13;
    UInt8 byte14;
    UInt8 byte15;
} CFUUIDBytes;

CF_EXPORT CFTypeID CFUUIDGetTypeID(void);

/// Returns a new random identifier.
CF_EXPORT CFUUIDRef CFUUIDCreate(CFAllocatorRef alloc);

/// Returns the identifier of these bytes.
CF_EXPORT CFUUIDRef CFUUIDCreateFromUUIDBytes(CFAllocatorRef alloc, CFUUIDBytes bytes);
CF_EXPORT CFUUIDRef CFUUIDCreateWithBytes(CFAllocatorRef alloc, UInt8 byte0, UInt8 byte1,
                                          UInt8 byte2, UInt8 byte3, UInt8 byte4, UInt8 byte5,
                                          UInt8 byte6, UInt8 byte7, UInt8 byte8, UInt8 byte9,
                                          UInt8 byte10, UInt8 byte11, UInt8 byte12, UInt8 byte13,
                                          UInt8 byte14, UInt8 byte15);

/// Returns the identifier that `uuidStr` writes down, NULL when that is empty or NULL.
///
/// Lenient: digits of either case; what stands before the first digit (blanks, a brace) and after
/// the last one is passed over; a bad or missing digit counts as zero.
CF_EXPORT CFUUIDRef CFUUIDCreateFromString(CFAllocatorRef alloc, CFStringRef uuidStr);

/// Returns the identifier written down: 8-4-4-4-12 digits, upper case.
CF_EXPORT CFStringRef CFUUIDCreateString(CFAllocatorRef alloc, CFUUIDRef uuid);

CF_EXPORT CFUUIDBytes CFUUIDGetUUIDBytes(CFUUIDRef uuid);

/// Returns the identifier of these bytes, which from then on never goes, whoever releases it.
CF_EXPORT CFUUIDRef CFUUIDGetConstantUUIDWithBytes(CFAllocatorRef alloc, UInt8 byte0, UInt8 byte1,
                                                   UInt8 byte2, UInt8 byte3, UInt8 byte4,
                                                   UInt8 byte5, UInt8 byte6, UInt8 byte7,
                                                   UInt8 byte8, UInt8 byte9, UInt8 byte10,
                                                   UInt8 byte11, UInt8 byte12, UInt8 byte13,
                                                   UInt8 byte14, UInt8 byte15);

CF_EXTERN_C_END
