// Plug-ins: bundles with factories of objects that answer interfaces.
//
// Info.plist names each factory (CFPlugInFactories: the factory's identifier to the name of its
// function) and which types it makes (CFPlugInTypes: the type's identifier to one identifier of a
// factory or an array of them). An identifier names one factory in the process. A bundle whose only
// factory is all zeros and MyFactoryFunction holds a template's leavings and is no plug-in.
//
// Code is loaded by the first instance. It is never unmapped in the release of the last one, which
// still runs in it, but together with the next executable that is unloaded.
//
// All functions serve any thread at once; none holds a lock while code of a plug-in runs.

#pragma once

#include "Platform/CoreFoundation/CFArray.h"
#include "Platform/CoreFoundation/CFBase.h"
#include "Platform/CoreFoundation/CFBundle.h"
#include "Platform/CoreFoundation/CFURL.h"
#include "Platform/CoreFoundation/CFUUID.h"

CF_EXTERN_C_BEGIN

/// What a plug-in exports by the name in Info.plist: returns a new instance for the type, NULL when
/// it makes none of that type.
typedef void* (*CFPlugInFactoryFunction)(CFAllocatorRef allocator, CFUUIDRef typeUUID);

CF_EXPORT CFTypeID CFPlugInGetTypeID(void);

/// The same as CFBundleCreate.
CF_EXPORT CFPlugInRef CFPlugInCreate(CFAllocatorRef allocator, CFURLRef plugInURL);

/// Returns the plug-in as a bundle.
CF_EXPORT CFBundleRef CFPlugInGetBundle(CFPlugInRef plugIn);

/// Tells whether the bundle is a plug-in whose code comes with its first instance and goes after
/// its last one.
CF_EXPORT Boolean CFPlugInIsLoadOnDemand(CFPlugInRef plugIn);

/// Returns a new array of the identifiers of all known factories of `typeUUID`; NULL, not an empty
/// array, when there is none.
CF_EXPORT CFArrayRef CFPlugInFindFactoriesForPlugInType(CFUUIDRef typeUUID);

/// The same for the factories of one plug-in.
CF_EXPORT CFArrayRef CFPlugInFindFactoriesForPlugInTypeInPlugIn(CFUUIDRef typeUUID,
                                                                CFPlugInRef plugIn);

/// Returns an instance made by the factory, loading its code first. NULL when the factory is
/// unknown or declares no such type, when the code or the factory's function cannot be had (with a
/// line in the log), and when the factory makes none.
///
/// The instance is the factory's own object, given back through its own interface.
CF_EXPORT void* CFPlugInInstanceCreate(CFAllocatorRef allocator, CFUUIDRef factoryUUID,
                                       CFUUIDRef typeUUID);

/// To be called by a plug-in for each instance it makes: keeps its bundle and code. Nothing happens
/// for an unknown factory.
CF_EXPORT void CFPlugInAddInstanceForFactory(CFUUIDRef factoryID);

/// To be called by a plug-in for each instance that goes. Nothing happens for an unknown factory,
/// and for one without instances.
CF_EXPORT void CFPlugInRemoveInstanceForFactory(CFUUIDRef factoryID);

CF_EXTERN_C_END
