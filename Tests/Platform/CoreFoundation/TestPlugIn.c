// A plug-in in plain C, as a foreign maker would write one: it puts the given path under a key.

#include "Tests/Platform/CoreFoundation/TestPlugIn.h"

#include <stdatomic.h>
#include <stdlib.h>
#include <string.h>

#include "Platform/CoreFoundation/CFPlugInCOM.h"
#include "Platform/CoreFoundation/CoreFoundation.h"

#define EXPORTED __attribute__((visibility("default")))

typedef struct {
    IUNKNOWN_C_GUTS;
    Boolean (*getMetadata)(void* self, CFMutableDictionaryRef attributes, CFStringRef type,
                           CFStringRef path);
} Table;

typedef struct {
    const Table* table;
    atomic_uint owners;
} Instance;

static ULONG addRef(void* self) {
    return atomic_fetch_add(&((Instance*)self)->owners, 1) + 1;
}

static ULONG release(void* self) {
    const ULONG left = atomic_fetch_sub(&((Instance*)self)->owners, 1) - 1;
    if (left == 0) {
        free(self);
        CFPlugInRemoveInstanceForFactory(TEST_PLUGIN_FACTORY_UUID);
    }
    return left;
}

static HRESULT queryInterface(void* self, REFIID iid, LPVOID* out) {
    CFUUIDRef asked = CFUUIDCreateFromUUIDBytes(kCFAllocatorDefault, iid);
    const Boolean known = CFEqual(asked, TEST_PLUGIN_INTERFACE) || CFEqual(asked, IUnknownUUID);
    CFRelease(asked);
    if (!known) {
        *out = NULL;
        return E_NOINTERFACE;
    }
    addRef(self);
    *out = self;
    return S_OK;
}

static Boolean getMetadata(void* self, CFMutableDictionaryRef attributes, CFStringRef type,
                           CFStringRef path) {
    (void)self;
    (void)type;
    CFDictionarySetValue(attributes, CFSTR("kMDItemPath"), path);
    return 1;
}

static const Table table = {NULL, queryInterface, addRef, release, getMetadata};

EXPORTED void* TestPlugInFactory(CFAllocatorRef allocator, CFUUIDRef typeUUID);
EXPORTED int TestPlugInMarker(void);

void* TestPlugInFactory(CFAllocatorRef allocator, CFUUIDRef typeUUID) {
    Instance* instance = NULL;
    (void)allocator;
    if (!CFEqual(typeUUID, TEST_PLUGIN_TYPE_UUID)) {
        return NULL;
    }
    instance = malloc(sizeof *instance);
    if (instance != NULL) {
        instance->table = &table;
        atomic_init(&instance->owners, 1);
        CFPlugInAddInstanceForFactory(TEST_PLUGIN_FACTORY_UUID);
    }
    return instance;
}

int TestPlugInMarker(void) {
    return 4711;
}
