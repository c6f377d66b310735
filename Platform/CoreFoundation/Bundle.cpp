#include "Platform/CoreFoundation/Bundle.h"

#include "Platform/CoreFoundation/BundleLayout.h"
#include "Platform/CoreFoundation/BundleRegistry.h"
#include "Platform/CoreFoundation/String.h"
#include "Platform/Foundation/Log.h"

namespace platform::cf {
namespace {

Owned<CFDictionaryRef> infoOfBundle(const std::string& path) {
    const std::optional<std::string> list = findInfoPlist(path);
    return list ? readInfoDictionary(*list) : emptyDictionary();
}

}  // namespace

Bundle::Bundle(std::string path)
    : Object(kType),
      path_(std::move(path)),
      info_(infoOfBundle(path_)),
      factories_(factoriesIn(info_.get())),
      registersDynamically_(registersDynamically(info_.get())) {
}

bool Bundle::isPlugInOnDemand() const noexcept {
    // Code that registers factories itself has to be there before they are asked for.
    return !factories_.empty() && !registersDynamically_;
}

std::optional<std::string> Bundle::executablePath() const {
    const void* const value = CFDictionaryGetValue(info(), CFSTR("CFBundleExecutable"));
    if (value != nullptr && CFGetTypeID(value) == CFStringGetTypeID()) {
        const std::optional<std::string> name = utf8Of(static_cast<CFStringRef>(value));
        if (name && !name->empty()) {
            return findExecutable(path_, *name);
        }
    }
    return findExecutable(path_, nameOfBundle(path_));
}

bool Bundle::load() const {
    if (image_.isLoaded()) {
        return true;
    }
    const std::optional<std::string> path = executablePath();
    if (!path) {
        platform::log("CFBundle: no executable in " + path_);
        return false;
    }
    return image_.load(*path);
}

void Bundle::lastRelease() const noexcept {
    BundleRegistry::shared().releaseLast(*this);
}

}  // namespace platform::cf
