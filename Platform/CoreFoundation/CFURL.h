// The places of files. Paths may hold any bytes but NUL; a relative one is taken from the folder
// that was current when the URL was made.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"

CF_EXTERN_C_BEGIN

typedef const struct __CFURL* CFURLRef;

/// How a path is written; this library knows the one.
typedef CFIndex CFURLPathStyle;
enum { kCFURLPOSIXPathStyle = 0 };

CF_EXPORT CFTypeID CFURLGetTypeID(void);

/// Returns the place at the path of `bufLen` bytes, NULL for an empty path and one that holds a
/// NUL. It is a folder when `isDirectory` says so or the path ends in a slash.
CF_EXPORT CFURLRef CFURLCreateFromFileSystemRepresentation(CFAllocatorRef allocator,
                                                           const UInt8* buffer, CFIndex bufLen,
                                                           Boolean isDirectory);

/// The same for a path in a string; NULL also for another style than POSIX and for a string that is
/// no path.
CF_EXPORT CFURLRef CFURLCreateWithFileSystemPath(CFAllocatorRef allocator, CFStringRef filePath,
                                                 CFURLPathStyle pathStyle, Boolean isDirectory);

/// Writes the path and a NUL to `buffer`, which has `maxBufLen` bytes: the whole path when
/// `resolveAgainstBase` is true, else as it was given, without a slash at the end. Returns false
/// when the buffer is too small.
CF_EXPORT Boolean CFURLGetFileSystemRepresentation(CFURLRef url, Boolean resolveAgainstBase,
                                                   UInt8* buffer, CFIndex maxBufLen);

/// Returns the path as it was given, without a slash at the end; NULL for another style than POSIX
/// and for a path that is not UTF-8.
CF_EXPORT CFStringRef CFURLCopyFileSystemPath(CFURLRef anURL, CFURLPathStyle pathStyle);

CF_EXTERN_C_END
