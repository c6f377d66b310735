// A search service in plain C: finds the importer's factory, makes an instance, asks it for files,
// lets it go and expects its code to be gone. It is given the bundle and the folder of samples that
// HostSamples.cpp writes, and links nothing but CoreFoundation.

#include <stdio.h>
#include <string.h>

#include "Platform/CoreFoundation/CFPlugInCOM.h"
#include "Platform/CoreFoundation/CoreFoundation.h"
#include "Sources/Importer/MetadataImporterPlugin.h"

static int failures = 0;

#define CHECK(condition)                                                    \
    do {                                                                    \
        if (!(condition)) {                                                 \
            fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                     \
        }                                                                   \
    } while (0)

#define OWN_TYPE CFSTR("com.brightmill.parlavox.parlavox")

// A type and an interface that nobody has.
#define FOREIGN_UUID                                                                              \
    CFUUIDGetConstantUUIDWithBytes(kCFAllocatorDefault, 0x0B, 0xAD, 0x0B, 0xAD, 0x00, 0x00, 0x40, \
                                   0x00, 0x80, 0x00, 0x0B, 0xAD, 0x0B, 0xAD, 0x0B, 0xAD)

typedef const char* (*LastFailureFunction)(void);

static const MDImporterInterfaceStruct* tableOf(void* instance) {
    return ((MetadataImporterPluginType*)instance)->conduitInterface;
}

// A function of the plug-in by its name, as bytes: C has no cast from an object to a function.
static void* functionNamed(CFBundleRef bundle, CFStringRef name) {
    void* const function = CFBundleGetFunctionPointerForName(bundle, name);
    CHECK(function != NULL);
    return function;
}

static int isPlugInMapped(void) {
    char line[4096];
    int isFound = 0;
    FILE* const maps = fopen("/proc/self/maps", "r");
    CHECK(maps != NULL);
    while (maps != NULL && fgets(line, sizeof line, maps) != NULL) {
        isFound |= strstr(line, "/Parlavox.mdimporter/Contents/Linux/Parlavox\n") != NULL;
    }
    if (maps != NULL) {
        fclose(maps);
    }
    return isFound;
}

static CFBundleRef openBundle(const char* path) {
    CFBundleRef bundle = NULL;
    CFURLRef url = CFURLCreateFromFileSystemRepresentation(kCFAllocatorDefault, (const UInt8*)path,
                                                           (CFIndex)strlen(path), 1);
    bundle = CFBundleCreate(kCFAllocatorDefault, url);
    CFRelease(url);
    CHECK(bundle != NULL && CFPlugInIsLoadOnDemand(bundle));
    return bundle;
}

// Makes an instance the way a service does: from the only factory that is found for the type.
static void* makeInstance(CFBundleRef bundle) {
    void* instance = NULL;
    CFStringRef factoryName = NULL;
    CFArrayRef factories =
        CFPlugInFindFactoriesForPlugInTypeInPlugIn(kMDImporterTypeID, (CFPlugInRef)bundle);
    CHECK(factories != NULL && CFArrayGetCount(factories) == 1);
    CHECK(!isPlugInMapped());
    if (factories != NULL) {
        CFUUIDRef factory = (CFUUIDRef)CFArrayGetValueAtIndex(factories, 0);
        factoryName = CFUUIDCreateString(kCFAllocatorDefault, factory);
        CHECK(CFEqual(factoryName, CFSTR(kMetadataImporterPluginFactoryID)));
        CHECK(CFPlugInInstanceCreate(kCFAllocatorDefault, factory, FOREIGN_UUID) == NULL);
        instance = CFPlugInInstanceCreate(kCFAllocatorDefault, factory, kMDImporterTypeID);
        CFRelease(factoryName);
        CFRelease(factories);
    }
    CHECK(instance != NULL && isPlugInMapped());
    return instance;
}

static void checkIdentifiers(void) {
    CFStringRef type = CFUUIDCreateString(kCFAllocatorDefault, kMDImporterTypeID);
    CFStringRef interface = CFUUIDCreateString(kCFAllocatorDefault, kMDImporterInterfaceID);
    CHECK(CFEqual(type, CFSTR("8B08C4BF-415B-11D8-B3F9-0003936726FC")));
    CHECK(CFEqual(interface, CFSTR("6EBC27C4-899C-11D8-84AE-0003936726FC")));
    CHECK(CFEqual(kMDItemTextContent, CFSTR("kMDItemTextContent")));
    CFRelease(interface);
    CFRelease(type);
}

static void checkFactory(CFBundleRef bundle) {
    void* (*factory)(CFAllocatorRef, CFUUIDRef) = NULL;
    void* const bytes = functionNamed(bundle, CFSTR("MetadataImporterPluginFactory"));
    void* instance = NULL;
    memcpy(&factory, &bytes, sizeof factory);
    CHECK(factory(kCFAllocatorDefault, FOREIGN_UUID) == NULL);
    CHECK(factory(kCFAllocatorDefault, IUnknownUUID) == NULL);
    instance = factory(kCFAllocatorDefault, kMDImporterTypeID);
    CHECK(instance != NULL && tableOf(instance)->Release(instance) == 0);
}

static void checkTable(CFBundleRef bundle, void* instance) {
    void* slots[5];
    CHECK(sizeof(MDImporterInterfaceStruct) == sizeof slots);
    memcpy(slots, tableOf(instance), sizeof slots);
    CHECK(slots[0] == NULL);
    CHECK(slots[1] == functionNamed(bundle, CFSTR("MetadataImporterQueryInterface")));
    CHECK(slots[2] == functionNamed(bundle, CFSTR("MetadataImporterPluginAddRef")));
    CHECK(slots[3] == functionNamed(bundle, CFSTR("MetadataImporterPluginRelease")));
    CHECK(slots[4] == functionNamed(bundle, CFSTR("GetMetadataForFile")));
}

// The instance comes and stays with one reference.
static void checkCounts(void* instance) {
    const MDImporterInterfaceStruct* const table = tableOf(instance);
    LPVOID result = NULL;
    CHECK(table->QueryInterface(instance, CFUUIDGetUUIDBytes(kMDImporterInterfaceID), &result) ==
          S_OK);
    CHECK(result == instance && ((MetadataImporterPluginType*)instance)->refCount == 2);
    result = NULL;
    CHECK(table->QueryInterface(instance, CFUUIDGetUUIDBytes(IUnknownUUID), &result) == S_OK);
    CHECK(result == instance && ((MetadataImporterPluginType*)instance)->refCount == 3);
    CHECK((UInt32)table->QueryInterface(instance, CFUUIDGetUUIDBytes(FOREIGN_UUID), &result) ==
          0x80000004u);
    CHECK(result == NULL);
    CHECK(table->AddRef(instance) == 4);
    CHECK(table->Release(instance) == 3);
    CHECK(table->Release(instance) == 2);
    CHECK(table->Release(instance) == 1);
}

static CFMutableDictionaryRef makeAttributes(void) {
    return CFDictionaryCreateMutable(kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks,
                                     &kCFTypeDictionaryValueCallBacks);
}

static Boolean import(void* instance, CFMutableDictionaryRef attributes, const char* samples,
                      const char* name) {
    char text[4096];
    Boolean wasRead = 0;
    CFStringRef path = NULL;
    snprintf(text, sizeof text, "%s/%s", samples, name);
    path = CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingUTF8);
    wasRead = tableOf(instance)->ImporterImportData(instance, attributes, OWN_TYPE, path);
    CFRelease(path);
    return wasRead;
}

// Expects `want`, in UTF-8, as the text of the sample, and nothing but the text.
static void checkText(void* instance, const char* samples, const char* name, const char* want) {
    CFMutableDictionaryRef attributes = makeAttributes();
    CFStringRef text = NULL;
    CFStringRef expected =
        CFStringCreateWithCString(kCFAllocatorDefault, want, kCFStringEncodingUTF8);
    CHECK(import(instance, attributes, samples, name) == 1);
    CHECK(CFDictionaryGetCount(attributes) == 1);
    text = (CFStringRef)CFDictionaryGetValue(attributes, kMDItemTextContent);
    CHECK(text != NULL && CFEqual(text, expected));
    CFRelease(expected);
    CFRelease(attributes);
}

// Expects the importer's line for people to have `reason` in it.
static void checkReason(CFBundleRef bundle, const char* name, const char* reason) {
    LastFailureFunction lastFailure = NULL;
    const char* line = NULL;
    void* const bytes = functionNamed(bundle, CFSTR("ParlavoxImporterLastFailure"));
    memcpy(&lastFailure, &bytes, sizeof lastFailure);
    line = lastFailure();
    CHECK(line != NULL);
    if (line != NULL && strstr(line, reason) == NULL) {
        fprintf(stderr, "%s: \"%s\" has no \"%s\"\n", name, line, reason);
        ++failures;
    }
}

// Expects a refusal that leaves the attributes alone and has `reason` in its line for people.
static void checkRefusal(CFBundleRef bundle, void* instance, const char* samples, const char* name,
                         const char* reason) {
    CFMutableDictionaryRef attributes = makeAttributes();
    CFDictionarySetValue(attributes, kMDItemTextContent, CFSTR("before"));
    CFDictionarySetValue(attributes, CFSTR("kMDItemTitle"), CFSTR("title"));
    CHECK(import(instance, attributes, samples, name) == 0);
    CHECK(CFDictionaryGetCount(attributes) == 2);
    CHECK(CFEqual(CFDictionaryGetValue(attributes, kMDItemTextContent), CFSTR("before")));
    CHECK(CFEqual(CFDictionaryGetValue(attributes, CFSTR("kMDItemTitle")), CFSTR("title")));
    checkReason(bundle, name, reason);
    CFRelease(attributes);
}

// Expects the refusal of a path and of a type that no bytes can stand for.
static void checkStringsWithoutBytes(CFBundleRef bundle, void* instance) {
    const UniChar lone[] = {'/', 0xD800};
    const UniChar nul[] = {'/', 0, 'a'};
    CFStringRef loneSurrogate = CFStringCreateWithCharacters(kCFAllocatorDefault, lone, 2);
    CFStringRef nulInside = CFStringCreateWithCharacters(kCFAllocatorDefault, nul, 3);
    CFMutableDictionaryRef attributes = makeAttributes();
    const MDImporterInterfaceStruct* const table = tableOf(instance);
    CHECK(table->ImporterImportData(instance, attributes, OWN_TYPE, loneSurrogate) == 0);
    checkReason(bundle, "lone surrogate in a path", "the path is no valid text");
    CHECK(table->ImporterImportData(instance, attributes, OWN_TYPE, nulInside) == 0);
    checkReason(bundle, "NUL in a path", "the path is no valid text");
    CHECK(table->ImporterImportData(instance, attributes, loneSurrogate, CFSTR("/")) == 0);
    checkReason(bundle, "lone surrogate in a type", "the content type is no valid text");
    CHECK(CFDictionaryGetCount(attributes) == 0);
    CFRelease(attributes);
    CFRelease(nulInside);
    CFRelease(loneSurrogate);
}

static void checkImports(CFBundleRef bundle, void* instance, const char* samples) {
    checkText(instance, samples, "good.parlavox",
              "The caf\xC3\xA9 opens \xF0\x9F\x95\x98 at ten.\n");
    checkText(instance, samples, "textless.parlavox", "");
    checkRefusal(bundle, instance, samples, "newer.parlavox", "newer reader");
    checkRefusal(bundle, instance, samples, "plain.parlavox", "no zip archive");
    checkRefusal(bundle, instance, samples, "missing.parlavox", "No such file");
}

// From opening to unloading; a second round shows that the first left nothing behind.
static void serve(const char* bundlePath, const char* samples) {
    CFBundleRef bundle = openBundle(bundlePath);
    void* instance = bundle != NULL ? makeInstance(bundle) : NULL;
    if (instance != NULL) {
        checkFactory(bundle);
        checkTable(bundle, instance);
        checkCounts(instance);
        checkImports(bundle, instance, samples);
        checkStringsWithoutBytes(bundle, instance);
        CHECK(tableOf(instance)->Release(instance) == 0);
        CFBundleUnloadExecutable(bundle);
        CHECK(!CFBundleIsExecutableLoaded(bundle));
        CHECK(!isPlugInMapped());
    }
    if (bundle != NULL) {
        CFRelease(bundle);
    }
}

int main(int count, char** arguments) {
    if (count != 3) {
        fprintf(stderr, "usage: %s BUNDLE SAMPLES\n", arguments[0]);
        return 2;
    }
    checkIdentifiers();
    serve(arguments[1], arguments[2]);
    serve(arguments[1], arguments[2]);
    return failures == 0 ? 0 : 1;
}
