#include "Platform/CoreFoundation/Object.h"

#include <cstdlib>
#include <string>

#include "Platform/Foundation/Log.h"

namespace platform::cf {

void endForBrokenCall(const char* function) noexcept {
    platform::log(std::string(function) + ": the call breaks the function's requirements");
    std::abort();
}

void Object::retain() const noexcept {
    if (!isEternal()) {
        owners_.fetch_add(1, std::memory_order_relaxed);
    }
}

void Object::release() const noexcept {
    CFIndex owners = owners_.load(std::memory_order_acquire);
    while (owners > 1) {
        if (isEternal(owners)) {
            return;
        }
        if (owners_.compare_exchange_weak(owners, owners - 1, std::memory_order_acq_rel,
                                          std::memory_order_acquire)) {
            return;
        }
    }
    lastRelease();
}

}  // namespace platform::cf

using platform::cf::objectOf;

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;

CFTypeID CFGetTypeID(CFTypeRef cf) {
    return static_cast<CFTypeID>(objectOf(cf, "CFGetTypeID").typeID());
}

CFTypeRef CFRetain(CFTypeRef cf) {
    objectOf(cf, "CFRetain").retain();
    return cf;
}

void CFRelease(CFTypeRef cf) {
    objectOf(cf, "CFRelease").release();
}

CFIndex CFGetRetainCount(CFTypeRef cf) {
    return objectOf(cf, "CFGetRetainCount").owners();
}

Boolean CFEqual(CFTypeRef cf1, CFTypeRef cf2) {
    const auto& first = objectOf(cf1, "CFEqual");
    const auto& second = objectOf(cf2, "CFEqual");
    return &first == &second || (first.typeID() == second.typeID() && first.isEqual(second));
}

CFHashCode CFHash(CFTypeRef cf) {
    return objectOf(cf, "CFHash").hash();
}

}  // extern "C"
