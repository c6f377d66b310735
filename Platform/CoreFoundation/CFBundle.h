// Bundles: folders that hold code and an information property list, Info.plist.
//
// The list, XML or binary, stands in the folder's Contents or Resources folder or in the folder
// itself. The executable is named X by CFBundleExecutable, else like the folder without its
// extension; it is the first file named X or libX.so in Contents/Linux, Contents and the bundle,
// where there is a Contents folder, else in Linux and the bundle. For NAME.resources, the folder
// lib beside a parent folder named share comes after these, then the parent itself.
//
// A bundle opened again while it is open is the same object. All functions serve any thread at
// once.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"
#include "Platform/CoreFoundation/CFDictionary.h"
#include "Platform/CoreFoundation/CFURL.h"

CF_EXTERN_C_BEGIN

typedef struct __CFBundle* CFBundleRef;

/// A bundle seen as a plug-in.
typedef struct __CFBundle* CFPlugInRef;

CF_EXPORT CFTypeID CFBundleGetTypeID(void);

/// Opens the bundle at `bundleURL` without loading code, and makes the factories known that its
/// Info.plist declares (see CFPlugIn.h).
///
/// NULL when there is no such folder, or when one of the factories belongs to another open bundle.
/// A missing or damaged Info.plist counts as empty.
CF_EXPORT CFBundleRef CFBundleCreate(CFAllocatorRef allocator, CFURLRef bundleURL);

/// Returns the contents of Info.plist, an empty dictionary when there is none; it lives as long as
/// the bundle.
CF_EXPORT CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef bundle);

/// Returns the value of `key` in Info.plist, NULL when there is none.
CF_EXPORT CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key);

/// Returns the string under CFBundleIdentifier, NULL when there is none.
CF_EXPORT CFStringRef CFBundleGetIdentifier(CFBundleRef bundle);

CF_EXPORT CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle);

/// Returns the place of the executable, NULL when there is none.
CF_EXPORT CFURLRef CFBundleCopyExecutableURL(CFBundleRef bundle);

/// Loads the executable unless it is loaded: all its names are bound at once and none becomes
/// visible to others. False, with a line in the log, when that fails.
CF_EXPORT Boolean CFBundleLoadExecutable(CFBundleRef bundle);

CF_EXPORT Boolean CFBundleIsExecutableLoaded(CFBundleRef bundle);

/// Unmaps the executable, and with it those of the plug-ins whose last instance has gone since. A
/// plug-in with living instances stays as it is.
CF_EXPORT void CFBundleUnloadExecutable(CFBundleRef bundle);

/// Returns the address of the function `functionName`, NULL when there is none; loads the
/// executable for that.
CF_EXPORT void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef functionName);

CF_EXTERN_C_END
