// A host in plain C: makes, asks and releases objects of every type through the headers.

#include <stdio.h>
#include <string.h>

#include "Platform/CoreFoundation/CFPlugInCOM.h"
#include "Platform/CoreFoundation/CoreFoundation.h"

static int failures = 0;

#define CHECK(condition)                                                    \
    do {                                                                    \
        if (!(condition)) {                                                 \
            fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #condition); \
            ++failures;                                                     \
        }                                                                   \
    } while (0)

static void checkWidths(void) {
    CHECK(sizeof(CFIndex) == 8 && (CFIndex)-1 < 0);
    CHECK(sizeof(CFTypeID) == 8 && sizeof(CFHashCode) == 8 && sizeof(CFOptionFlags) == 8);
    CHECK(sizeof(Boolean) == 1 && sizeof(UniChar) == 2 && sizeof(CFStringEncoding) == 4);
    CHECK(sizeof(CFRange) == 16 && sizeof(CFUUIDBytes) == 16 && _Alignof(CFUUIDBytes) == 1);
    CHECK(sizeof(HRESULT) == 4 && sizeof(ULONG) == 4 && sizeof(LPVOID) == sizeof(void*));
    CHECK(sizeof(CFDictionaryKeyCallBacks) == 48 && sizeof(CFDictionaryValueCallBacks) == 40);
    CHECK(sizeof(IUnknownVTbl) == 32);
    CHECK(S_OK == 0 && S_FALSE == 1 && SUCCEEDED(S_FALSE) && FAILED(E_NOINTERFACE));
    CHECK((UInt32)E_NOINTERFACE == 0x80000004u && (UInt32)E_POINTER == 0x80000005u);
    CHECK((UInt32)E_UNEXPECTED == 0x8000FFFFu && (UInt32)E_FAIL == 0x80000008u);
}

static void checkStrings(void) {
    char buffer[16];
    UniChar units[4];
    CFStringRef string =
        CFStringCreateWithCString(kCFAllocatorDefault, "caf\xC3\xA9", kCFStringEncodingUTF8);
    CHECK(string != NULL);
    CHECK(CFGetTypeID(string) == CFStringGetTypeID());
    CHECK(CFStringGetLength(string) == 4);
    CFStringGetCharacters(string, CFRangeMake(0, 4), units);
    CHECK(units[3] == 0xE9);
    CHECK(CFStringGetCString(string, buffer, sizeof buffer, kCFStringEncodingUTF8));
    CHECK(strcmp(buffer, "caf\xC3\xA9") == 0);
    CHECK(CFRetain(string) == string && CFGetRetainCount(string) == 2);
    CFRelease(string);
    CFRelease(string);
    CHECK(CFEqual(CFSTR("constant"), CFSTR("const"
                                           "ant")));
}

static void checkUUIDs(void) {
    CFUUIDRef uuid =
        CFUUIDCreateFromString(kCFAllocatorDefault, CFSTR("00000000-0000-0000-C000-000000000046"));
    CFStringRef text = CFUUIDCreateString(kCFAllocatorDefault, uuid);
    CHECK(uuid == IUnknownUUID);
    CHECK(CFUUIDGetUUIDBytes(uuid).byte8 == 0xC0 && CFUUIDGetUUIDBytes(uuid).byte15 == 0x46);
    CHECK(CFEqual(text, CFSTR("00000000-0000-0000-C000-000000000046")));
    CFRelease(text);
    CFRelease(uuid);
}

static void countPair(const void* key, const void* value, void* context) {
    CHECK(key != NULL && value != NULL);
    ++*(int*)context;
}

static void checkCollections(void) {
    int pairs = 0;
    SInt32 seven = 7;
    double sevenReal = 7.0;
    CFNumberRef number = CFNumberCreate(kCFAllocatorDefault, kCFNumberSInt32Type, &seven);
    CFNumberRef real = CFNumberCreate(kCFAllocatorDefault, kCFNumberDoubleType, &sevenReal);
    CFMutableArrayRef array = CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks);
    CFMutableDictionaryRef dictionary = CFDictionaryCreateMutable(
        kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks);
    CHECK(CFEqual(number, real) && CFHash(number) == CFHash(real));
    CFArrayAppendValue(array, number);
    CFRelease(number);
    CFRelease(real);
    CFDictionarySetValue(dictionary, CFSTR("array"), array);
    CFRelease(array);
    CFDictionarySetValue(dictionary, CFSTR("flag"), kCFBooleanTrue);
    CHECK(CFDictionaryGetCount(dictionary) == 2);
    CFDictionaryApplyFunction(dictionary, countPair, &pairs);
    CHECK(pairs == 2);
    array = (CFMutableArrayRef)CFDictionaryGetValue(dictionary, CFSTR("array"));
    CHECK(CFArrayGetCount(array) == 1);
    seven = 0;
    CHECK(CFNumberGetValue((CFNumberRef)CFArrayGetValueAtIndex(array, 0), kCFNumberSInt32Type,
                           &seven));
    CHECK(seven == 7);
    CHECK(CFBooleanGetValue((CFBooleanRef)CFDictionaryGetValue(dictionary, CFSTR("flag"))));
    CFRelease(dictionary);
}

static void checkPlaces(void) {
    UInt8 buffer[32];
    const UInt8 bytes[] = {1, 2, 3};
    CFDataRef data = CFDataCreate(kCFAllocatorDefault, bytes, 3);
    CFURLRef url = CFURLCreateWithFileSystemPath(kCFAllocatorDefault, CFSTR("/no/such.bundle"),
                                                 kCFURLPOSIXPathStyle, 1);
    CHECK(CFDataGetLength(data) == 3 && CFDataGetBytePtr(data)[2] == 3);
    CHECK(CFURLGetFileSystemRepresentation(url, 1, buffer, sizeof buffer));
    CHECK(strcmp((const char*)buffer, "/no/such.bundle") == 0);
    CHECK(CFPlugInCreate(kCFAllocatorDefault, url) == NULL);
    CFRelease(url);
    CFRelease(data);
}

int main(void) {
    checkWidths();
    checkStrings();
    checkUUIDs();
    checkCollections();
    checkPlaces();
    return failures == 0 ? 0 : 1;
}
