/* The importer plug-in, as a search service sees it. C and C++.
 *
 * 1. The service looks MetadataImporterPluginFactory up by name, calls it with the importer type
 * and gets an instance with one reference. An instance begins with a pointer to its interface
 * table.
 * 2. It asks the instance for the importer interface (kMDImporterInterfaceID), which adds a
 *    reference, calls the table's GetMetadataForFile once a file, and drops its references.
 * 3. References are counted without atomic operations: add and drop them on one thread at a time.
 *    GetMetadataForFile may run on any threads at once.
 * 4. The table's entries 2 to 4 let no exception out. GetMetadataForFile does: a damaged archive
 *    raises a descendant of std::exception. A service written in C++ catches it for each file; one
 *    written in C would be ended by it, so it needs such a host in between.
 * 5. Objects of the plug-in and of the service come from one CoreFoundation library, whichever the
 *    service loaded.
 */

#pragma once

#include <stdint.h>

#include "Platform/CoreFoundation/CFPlugInCOM.h"
#include "Platform/CoreFoundation/CoreFoundation.h"

#if defined(__cplusplus)
#define PV_IMPORTER_NOEXCEPT noexcept
extern "C" {
#else
#define PV_IMPORTER_NOEXCEPT
#endif

#define PV_IMPORTER_EXPORT __attribute__((visibility("default")))

/* The type that the factory serves: 8B08C4BF-415B-11D8-B3F9-0003936726FC. */
#define kMDImporterTypeID                                                                         \
    CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, 0x8B, 0x08, 0xC4, 0xBF, 0x41, 0x5B, 0x11, \
                                   0xD8, 0xB3, 0xF9, 0x00, 0x03, 0x93, 0x67, 0x26, 0xFC)

/* The interface that instances answer: 6EBC27C4-899C-11D8-84AE-0003936726FC. */
#define kMDImporterInterfaceID                                                                    \
    CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, 0x6E, 0xBC, 0x27, 0xC4, 0x89, 0x9C, 0x11, \
                                   0xD8, 0x84, 0xAE, 0x00, 0x03, 0x93, 0x67, 0x26, 0xFC)

/* The identifier under which instances are registered; the bundle's Info.plist declares it. */
#define kMetadataImporterPluginFactoryID "03247F2E-55F1-41D0-9F94-2CA3EB8E3A51"

/* The attribute that an importer sets: the file's text, a CFString. */
#define kMDItemTextContent CFSTR("kMDItemTextContent")

/* The interface table: five pointers, one constant table for all instances. */
typedef struct MDImporterInterfaceStruct {
    void* _reserved;
    HRESULT (*QueryInterface)(void* instance, REFIID interfaceID, LPVOID* result);
    ULONG (*AddRef)(void* instance);
    ULONG (*Release)(void* instance);
    Boolean (*ImporterImportData)(void* instance, CFMutableDictionaryRef attributes,
                                  CFStringRef contentTypeUTI, CFStringRef pathToFile);
} MDImporterInterfaceStruct;

/* An instance. */
typedef struct MetadataImporterPluginType {
    const MDImporterInterfaceStruct* conduitInterface;
    CFUUIDRef factoryID; /* retained */
    uint32_t refCount;
} MetadataImporterPluginType;

/* Returns a new instance with one reference, null for any type but the importer's. The allocator is
 * ignored. */
PV_IMPORTER_EXPORT void* MetadataImporterPluginFactory(CFAllocatorRef allocator,
                                                       CFUUIDRef typeID) PV_IMPORTER_NOEXCEPT;

/* Makes an instance with one reference and registers it under the factory identifier. */
PV_IMPORTER_EXPORT MetadataImporterPluginType* AllocMetadataImporterPluginType(CFUUIDRef factoryID)
    PV_IMPORTER_NOEXCEPT;

/* Frees an instance and takes it off the register. */
PV_IMPORTER_EXPORT void DeallocMetadataImporterPluginType(MetadataImporterPluginType* instance)
    PV_IMPORTER_NOEXCEPT;

/* Leaves the instance at `result`, with one reference more, and returns 0 for the importer
 * interface and for IUnknown; otherwise leaves null and returns 0x80000004. */
PV_IMPORTER_EXPORT HRESULT MetadataImporterQueryInterface(void* instance, REFIID interfaceID,
                                                          LPVOID* result) PV_IMPORTER_NOEXCEPT;

/* Each returns the new count. Dropping the last reference ends the instance. */
PV_IMPORTER_EXPORT ULONG MetadataImporterPluginAddRef(void* instance) PV_IMPORTER_NOEXCEPT;
PV_IMPORTER_EXPORT ULONG MetadataImporterPluginRelease(void* instance) PV_IMPORTER_NOEXCEPT;

/* Reads the file at `pathToFile`, a POSIX path, as one of type `contentTypeUTI`, and sets its text
 * in `attributes` under kMDItemTextContent; no other attribute is touched. Returns whether the file
 * was read; when it was not, the attributes are as they were. A path or type that is no valid text
 * (one with a lone surrogate, say) is refused. */
PV_IMPORTER_EXPORT Boolean GetMetadataForFile(void* instance, CFMutableDictionaryRef attributes,
                                              CFStringRef contentTypeUTI, CFStringRef pathToFile);

/* Returns why the calling thread's last GetMetadataForFile gave no text, as one line of UTF-8, or
 * null when it did. The line is valid until the thread's next call. Services that don't know this
 * function miss only the reason. */
PV_IMPORTER_EXPORT const char* ParlavoxImporterLastFailure(void) PV_IMPORTER_NOEXCEPT;

#if defined(__cplusplus)
}
#endif
