#include "Host/Importer.h"

#include <new>

#include "Host/CoreFoundationOwner.h"

namespace host {
namespace {

// CoreFoundation answers null when there is no memory.
template <class Ref>
const Owner<Ref>& made(const Owner<Ref>& object) {
    if (!object) {
        throw std::bad_alloc();
    }
    return object;
}

std::u16string textIn(CFDictionaryRef attributes) {
    const void* value = CFDictionaryGetValue(attributes, kMDItemTextContent);
    if (value == nullptr || CFGetTypeID(value) != CFStringGetTypeID()) {
        return {};
    }
    return unitsOf(static_cast<CFStringRef>(value));
}

}  // namespace

Importer::~Importer() {
    if (instance_ != nullptr) {
        instance_->conduitInterface->Release(instance_);
    }
}

std::optional<std::u16string> Importer::textOfFile(const std::string& path,
                                                   const std::string& type) {
    const Owner<CFStringRef> pathString = stringOf(path);
    const Owner<CFStringRef> typeString = stringOf(type);
    const Owner<CFMutableDictionaryRef> attributes(CFDictionaryCreateMutable(
        kCFAllocatorDefault, 0, &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
    if (instance_->conduitInterface->ImporterImportData(instance_, made(attributes).get(),
                                                        made(typeString).get(),
                                                        made(pathString).get()) == 0) {
        return std::nullopt;
    }
    return textIn(attributes.get());
}

std::string Importer::lastFailure() const {
    const char* cause = lastFailure_ == nullptr ? nullptr : lastFailure_();
    return cause == nullptr ? std::string() : cause;
}

}  // namespace host
