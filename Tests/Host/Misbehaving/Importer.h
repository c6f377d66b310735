/* The parts that all misbehaving importers share: a factory, an instance, and a file reader.
 *
 * Each importer includes this and defines importBadFile, which gets the files whose names hold
 * "bad"; of any other file the path is the text. FACTORY_NAME and FACTORY_ANSWER are for those
 * whose factory is the matter.
 */

#pragma once

#include <stdlib.h>
#include <string.h>

#include "Sources/Importer/MetadataImporterPlugin.h"

#ifndef FACTORY_NAME
#define FACTORY_NAME TestFactory
#endif
#ifndef FACTORY_ANSWER
#define FACTORY_ANSWER &instance
#endif

#ifdef __cplusplus
extern "C" {
#endif

static Boolean importBadFile(CFMutableDictionaryRef attributes);

static HRESULT query(void* instance, REFIID interfaceID, LPVOID* result) {
    (void)interfaceID;
    *result = instance;
    return S_OK;
}

static ULONG count(void* instance) {
    (void)instance;
    return 1;
}

static Boolean importData(void* instance, CFMutableDictionaryRef attributes, CFStringRef type,
                          CFStringRef path) {
    char name[4096];
    (void)instance;
    (void)type;
    if (!CFStringGetCString(path, name, sizeof name, kCFStringEncodingUTF8)) {
        return 0;
    }
    if (strstr(name, "bad") != NULL) {
        return importBadFile(attributes);
    }
    CFDictionarySetValue(attributes, kMDItemTextContent, path);
    return 1;
}

__attribute__((visibility("default"))) void* FACTORY_NAME(CFAllocatorRef allocator, CFUUIDRef type);

// NOLINTNEXTLINE(misc-definitions-in-headers): each importer is one source that includes it once
void* FACTORY_NAME(CFAllocatorRef allocator, CFUUIDRef type) {
    static const MDImporterInterfaceStruct table = {NULL, query, count, count, importData};
    static MetadataImporterPluginType instance = {&table, NULL, 1};
    (void)allocator;
    (void)type;
    (void)instance;
    return FACTORY_ANSWER;
}

#ifdef __cplusplus
}
#endif
