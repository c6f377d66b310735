// Numbers and truth values. Numbers are kept as a signed integer of 64 bits or a double.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"

CF_EXTERN_C_BEGIN

typedef const struct __CFBoolean* CFBooleanRef;
typedef const struct __CFNumber* CFNumberRef;

/// The C types that numbers come from and go to.
typedef CFIndex CFNumberType;
enum {
    kCFNumberSInt8Type = 1,
    kCFNumberSInt16Type = 2,
    kCFNumberSInt32Type = 3,
    kCFNumberSInt64Type = 4,
    kCFNumberFloat32Type = 5,
    kCFNumberFloat64Type = 6,
    kCFNumberCharType = 7,
    kCFNumberShortType = 8,
    kCFNumberIntType = 9,
    kCFNumberLongType = 10,
    kCFNumberLongLongType = 11,
    kCFNumberFloatType = 12,
    kCFNumberDoubleType = 13,
    kCFNumberCFIndexType = 14,
    kCFNumberNSIntegerType = 15,
    kCFNumberCGFloatType = 16
};

/// The two truth values; they never go.
CF_EXPORT const CFBooleanRef kCFBooleanTrue;
CF_EXPORT const CFBooleanRef kCFBooleanFalse;

CF_EXPORT CFTypeID CFBooleanGetTypeID(void);
CF_EXPORT Boolean CFBooleanGetValue(CFBooleanRef boolean);

CF_EXPORT CFTypeID CFNumberGetTypeID(void);

/// Returns the number that stands at `valuePtr` as `theType`, NULL for an unknown type. The place
/// need not be aligned.
CF_EXPORT CFNumberRef CFNumberCreate(CFAllocatorRef allocator, CFNumberType theType,
                                     const void* valuePtr);

/// Tells whether the number was made of a floating point type.
CF_EXPORT Boolean CFNumberIsFloatType(CFNumberRef number);

/// Writes the number to `valuePtr` as `theType`. Returns false when it is not the same number
/// there: digits are then cut, and a number beyond the type's range becomes the nearest one within.
/// For an unknown type nothing is written. The place need not be aligned.
CF_EXPORT Boolean CFNumberGetValue(CFNumberRef number, CFNumberType theType, void* valuePtr);

CF_EXTERN_C_END
