// What collections of objects do with their values.

#pragma once

#include "Platform/CoreFoundation/CFBase.h"

namespace platform::cf {

extern "C" {

inline const void* retainForCollection(CFAllocatorRef, const void* value) {
    return CFRetain(value);
}
inline void releaseForCollection(CFAllocatorRef, const void* value) {
    CFRelease(value);
}

}  // extern "C"

}  // namespace platform::cf
