/* Delivers something that is no text. */

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    const int number = 7;
    CFNumberRef value = CFNumberCreate(kCFAllocatorDefault, kCFNumberIntType, &number);
    CFDictionarySetValue(attributes, kMDItemTextContent, value);
    CFRelease(value);
    return 1;
}
