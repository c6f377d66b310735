// The importer as a service holds it: the bundle opened, its code loaded, one instance made.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "Platform/CoreFoundation/CoreFoundation.h"
#include "Sources/Importer/MetadataImporterPlugin.h"

namespace test {

struct CFReleaser {
    void operator()(const void* object) const { CFRelease(object); }
};

/// Owns what a Create function returned; null when it returned nothing.
template <class RefType>
using CFOwner = std::unique_ptr<std::remove_pointer_t<RefType>, CFReleaser>;

inline CFOwner<CFStringRef> makeCFString(std::string_view utf8) {
    return CFOwner<CFStringRef>(
        CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(utf8.data()),
                                static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8, false));
}

/// One instance; its code goes with it. One thread makes and ends it, any may import.
class LoadedImporter {
public:
    explicit LoadedImporter(std::string_view bundlePath) {
        const CFOwner<CFURLRef> url(CFURLCreateFromFileSystemRepresentation(
            kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bundlePath.data()),
            static_cast<CFIndex>(bundlePath.size()), true));
        bundle_.reset(CFBundleCreate(kCFAllocatorDefault, url.get()));
        const CFOwner<CFUUIDRef> factory(
            CFUUIDCreateFromString(kCFAllocatorDefault, CFSTR(kMetadataImporterPluginFactoryID)));
        instance_ = static_cast<MetadataImporterPluginType*>(
            CFPlugInInstanceCreate(kCFAllocatorDefault, factory.get(), kMDImporterTypeID));
    }
    ~LoadedImporter() {
        if (instance_ != nullptr) {
            instance_->conduitInterface->Release(instance_);
            CFBundleUnloadExecutable(bundle_.get());
        }
    }
    LoadedImporter(const LoadedImporter&) = delete;
    LoadedImporter& operator=(const LoadedImporter&) = delete;

    [[nodiscard]] bool isLoaded() const { return instance_ != nullptr; }

    /// Calls the interface's import function; lets its exceptions pass.
    [[nodiscard]] bool import(CFMutableDictionaryRef attributes, CFStringRef type,
                              std::string_view path) const {
        return instance_->conduitInterface->ImporterImportData(instance_, attributes, type,
                                                               makeCFString(path).get()) != 0;
    }

    /// The calling thread's last failure; empty when there is none.
    [[nodiscard]] std::string lastFailure() const {
        using Function = const char* (*)() noexcept;
        const auto function = reinterpret_cast<Function>(
            CFBundleGetFunctionPointerForName(bundle_.get(), CFSTR("ParlavoxImporterLastFailure")));
        const char* const line = function();
        return line != nullptr ? line : "";
    }

private:
    CFOwner<CFBundleRef> bundle_;
    MetadataImporterPluginType* instance_ = nullptr;
};

}  // namespace test
