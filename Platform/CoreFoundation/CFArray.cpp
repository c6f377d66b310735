#include "Platform/CoreFoundation/CFArray.h"

#include <algorithm>
#include <memory>

#include "Platform/CoreFoundation/Array.h"
#include "Platform/CoreFoundation/TypeCallBacks.h"

static_assert(sizeof(CFArrayCallBacks) == 40);

namespace platform::cf {

Array::Array(Changes changes, const CFArrayCallBacks* callBacks)
    : PlainObject(kType),
      changes_(changes),
      callBacks_(callBacks == nullptr ? CFArrayCallBacks{} : *callBacks) {
}

Array::~Array() {
    if (callBacks_.release == nullptr) {
        return;
    }
    for (const void* value : values_) {
        callBacks_.release(kCFAllocatorDefault, value);
    }
}

void Array::append(const void* value) {
    values_.push_back(nullptr);
    values_.back() =
        callBacks_.retain == nullptr ? value : callBacks_.retain(kCFAllocatorDefault, value);
}

bool Array::isEqual(const Object& other) const noexcept {
    const auto& array = static_cast<const Array&>(other);
    return std::equal(values_.begin(), values_.end(), array.values_.begin(), array.values_.end(),
                      [this](const void* first, const void* second) {
                          return first == second ||
                                 (callBacks_.equal != nullptr && callBacks_.equal(first, second));
                      });
}

}  // namespace platform::cf

using platform::cf::Array;
using platform::cf::Changes;
using platform::cf::expect;
using platform::cf::objectAs;
using platform::cf::orEnd;
using platform::cf::orNull;
using platform::cf::releaseForCollection;
using platform::cf::retainForCollection;
using platform::cf::TypeID;

extern "C" {

const CFArrayCallBacks kCFTypeArrayCallBacks = {0, retainForCollection, releaseForCollection,
                                                nullptr, CFEqual};

CFTypeID CFArrayGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::Array);
}

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex numValues,
                         const CFArrayCallBacks* callBacks) {
    if (numValues < 0 || (values == nullptr && numValues > 0)) {
        return nullptr;
    }
    return orNull([&]() -> CFArrayRef {
        auto array = std::make_unique<Array>(Changes::Never, callBacks);
        for (CFIndex i = 0; i < numValues; ++i) {
            array->append(values[i]);
        }
        return refOf(array.release());
    });
}

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks* callBacks) {
    return orNull([&] { return refOf(new Array(Changes::Allowed, callBacks)); });
}

CFIndex CFArrayGetCount(CFArrayRef theArray) {
    return static_cast<CFIndex>(objectAs<Array>(theArray, "CFArrayGetCount").values().size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef theArray, CFIndex idx) {
    const auto& array = objectAs<Array>(theArray, "CFArrayGetValueAtIndex");
    const auto index = static_cast<std::size_t>(idx);
    expect(idx >= 0 && index < array.values().size(), "CFArrayGetValueAtIndex");
    return array.values()[index];
}

void CFArrayAppendValue(CFMutableArrayRef theArray, const void* value) {
    auto& array = const_cast<Array&>(objectAs<Array>(theArray, "CFArrayAppendValue"));
    expect(array.canChange(), "CFArrayAppendValue");
    orEnd([&] { array.append(value); });
}

}  // extern "C"
