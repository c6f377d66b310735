#include "Platform/CoreFoundation/CFBundle.h"

#include "Platform/CoreFoundation/Bundle.h"
#include "Platform/CoreFoundation/BundleLayout.h"
#include "Platform/CoreFoundation/BundleRegistry.h"
#include "Platform/CoreFoundation/String.h"
#include "Platform/CoreFoundation/URL.h"

using platform::cf::Bundle;
using platform::cf::BundleRegistry;
using platform::cf::IsFolder;
using platform::cf::objectAs;
using platform::cf::orNull;
using platform::cf::plainPath;
using platform::cf::TypeID;
using platform::cf::URL;
using platform::cf::utf8Of;

extern "C" {

CFTypeID CFBundleGetTypeID(void) {
    return static_cast<CFTypeID>(TypeID::Bundle);
}

CFBundleRef CFBundleCreate(CFAllocatorRef, CFURLRef bundleURL) {
    if (bundleURL == nullptr) {
        return nullptr;
    }
    const auto& url = objectAs<URL>(bundleURL, "CFBundleCreate");
    return orNull(
        [&] { return BundleRegistry::shared().open(plainPath(url.absolutePath())).take(); });
}

CFDictionaryRef CFBundleGetInfoDictionary(CFBundleRef bundle) {
    return objectAs<Bundle>(bundle, "CFBundleGetInfoDictionary").info();
}

CFTypeRef CFBundleGetValueForInfoDictionaryKey(CFBundleRef bundle, CFStringRef key) {
    const auto& object = objectAs<Bundle>(bundle, "CFBundleGetValueForInfoDictionaryKey");
    return CFDictionaryGetValue(object.info(), key);
}

CFStringRef CFBundleGetIdentifier(CFBundleRef bundle) {
    const CFTypeRef value =
        CFBundleGetValueForInfoDictionaryKey(bundle, CFSTR("CFBundleIdentifier"));
    const bool isString = value != nullptr && CFGetTypeID(value) == CFStringGetTypeID();
    return isString ? static_cast<CFStringRef>(value) : nullptr;
}

CFURLRef CFBundleCopyBundleURL(CFBundleRef bundle) {
    const auto& object = objectAs<Bundle>(bundle, "CFBundleCopyBundleURL");
    return orNull([&] { return refOf(URL::ofPath(object.path(), IsFolder::Yes)); });
}

CFURLRef CFBundleCopyExecutableURL(CFBundleRef bundle) {
    const auto& object = objectAs<Bundle>(bundle, "CFBundleCopyExecutableURL");
    return orNull([&]() -> CFURLRef {
        const std::optional<std::string> path = object.executablePath();
        return path ? refOf(URL::ofPath(*path, IsFolder::No)) : nullptr;
    });
}

Boolean CFBundleLoadExecutable(CFBundleRef bundle) {
    return objectAs<Bundle>(bundle, "CFBundleLoadExecutable").load();
}

Boolean CFBundleIsExecutableLoaded(CFBundleRef bundle) {
    return objectAs<Bundle>(bundle, "CFBundleIsExecutableLoaded").image().isLoaded();
}

void CFBundleUnloadExecutable(CFBundleRef bundle) {
    BundleRegistry::shared().unload(objectAs<Bundle>(bundle, "CFBundleUnloadExecutable"));
}

void* CFBundleGetFunctionPointerForName(CFBundleRef bundle, CFStringRef functionName) {
    const auto& object = objectAs<Bundle>(bundle, "CFBundleGetFunctionPointerForName");
    return orNull([&]() -> void* {
        const std::optional<std::string> name = utf8Of(functionName);
        if (!name || name->find('\0') != std::string::npos || !object.load()) {
            return nullptr;
        }
        return object.image().symbol(*name);
    });
}

}  // extern "C"
