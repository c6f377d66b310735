// Immutable strings of UTF-16 units.
//
// Lone surrogates, NUL and U+FFFE are kept as they come. A string of ASCII characters takes one
// byte a unit, any other two. Lengths and positions count UTF-16 units, sizes bytes.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"

CF_EXTERN_C_BEGIN

typedef UInt32 CFStringEncoding;

/// The encodings that this library knows; all functions fail for any other one.
enum {
    kCFStringEncodingUTF16 = 0x0100,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingUTF8 = 0x08000100,
    kCFStringEncodingUTF16BE = 0x10000100,
    kCFStringEncodingUTF16LE = 0x14000100
};

/// The constant string of a literal. ASCII only; any other byte becomes U+FFFD.
#define CFSTR(cStr) __CFStringMakeConstantString("" cStr "")

/// Returns the constant string of `cStr`: always the same object for the same characters, never
/// released. Use CFSTR.
CF_EXPORT CFStringRef __CFStringMakeConstantString(const char* cStr);

CF_EXPORT CFTypeID CFStringGetTypeID(void);

/// Returns a string of `numBytes` bytes in `encoding`, NULL when one of them is invalid in it.
///
/// UTF-8 is taken strictly: nothing truncated or overlong, no surrogates, nothing beyond U+10FFFF.
/// A byte order mark at the start is dropped, whatever `isExternalRepresentation` says. UTF-16
/// without a mark is in the machine's order, in an external representation big endian.
CF_EXPORT CFStringRef CFStringCreateWithBytes(CFAllocatorRef alloc, const UInt8* bytes,
                                              CFIndex numBytes, CFStringEncoding encoding,
                                              Boolean isExternalRepresentation);

/// The same for bytes that end before the first NUL; UTF-8 and ASCII only.
CF_EXPORT CFStringRef CFStringCreateWithCString(CFAllocatorRef alloc, const char* cStr,
                                                CFStringEncoding encoding);

/// Returns a string of these units as they are, also of a byte order mark; NULL when `numChars` is
/// negative.
CF_EXPORT CFStringRef CFStringCreateWithCharacters(CFAllocatorRef alloc, const UniChar* chars,
                                                   CFIndex numChars);

/// Returns a string equal to `theString`: as it cannot change, itself.
CF_EXPORT CFStringRef CFStringCreateCopy(CFAllocatorRef alloc, CFStringRef theString);

CF_EXPORT CFIndex CFStringGetLength(CFStringRef theString);

/// Requires: idx lies within the string.
CF_EXPORT UniChar CFStringGetCharacterAtIndex(CFStringRef theString, CFIndex idx);

/// Writes the units of `range` to `buffer`. Requires: the range lies within the string.
CF_EXPORT void CFStringGetCharacters(CFStringRef theString, CFRange range, UniChar* buffer);

/// Writes the whole string and a NUL to `buffer`, which has `bufferSize` bytes; UTF-8 and ASCII
/// only. Returns false, with an empty string in the buffer, when it is too small or a unit cannot
/// be written in `encoding`.
CF_EXPORT Boolean CFStringGetCString(CFStringRef theString, char* buffer, CFIndex bufferSize,
                                     CFStringEncoding encoding);

/// Returns the string's own characters followed by a NUL, which live as long as the string, or NULL
/// where it has none: be ready to use CFStringGetCString.
CF_EXPORT const char* CFStringGetCStringPtr(CFStringRef theString, CFStringEncoding encoding);

/// Writes as many whole characters of `range` as fit into the `maxBufLen` bytes of `buffer`, counts
/// the bytes in `usedBufLen` unless that is NULL, and returns the number of units written.
///
/// Stops before a unit that cannot be written in `encoding`, or writes `lossByte` for it unless
/// that is 0. With a NULL `buffer` it only counts. UTF-16 begins with a byte order mark when
/// `isExternalRepresentation` is true. Requires: the range lies within the string.
CF_EXPORT CFIndex CFStringGetBytes(CFStringRef theString, CFRange range, CFStringEncoding encoding,
                                   UInt8 lossByte, Boolean isExternalRepresentation, UInt8* buffer,
                                   CFIndex maxBufLen, CFIndex* usedBufLen);

/// Returns how many bytes `length` units can take at most, without a NUL; kCFNotFound when that
/// cannot be said.
CF_EXPORT CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);

/// Writes the string as a path: UTF-8, nothing decomposed, with a NUL. Returns false where
/// CFStringGetCString does, and for a string that holds a NUL.
CF_EXPORT Boolean CFStringGetFileSystemRepresentation(CFStringRef string, char* buffer,
                                                      CFIndex maxBufLen);

/// Returns how many bytes the string can take at most as a path, the NUL included.
CF_EXPORT CFIndex CFStringGetMaximumSizeOfFileSystemRepresentation(CFStringRef string);

CF_EXTERN_C_END
