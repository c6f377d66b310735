#include "Platform/CoreFoundation/LoadedImage.h"

#include <dlfcn.h>

#include <utility>

#include "Platform/Foundation/Log.h"

namespace platform::cf {

bool LoadedImage::load(const std::string& path) {
    if (isLoaded()) {
        return true;
    }
    void* const handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        const char* const why = dlerror();
        platform::log(std::string("CFBundle: cannot load the executable: ") +
                      (why == nullptr ? path : why));
        return false;
    }
    {
        const std::lock_guard lock(mutex_);
        if (handle_ == nullptr) {
            handle_ = handle;
            return true;
        }
    }
    // Another thread was faster; the loader counts, so this takes only our own load back.
    dlclose(handle);
    return true;
}

bool LoadedImage::isLoaded() const {
    const std::lock_guard lock(mutex_);
    return handle_ != nullptr;
}

void* LoadedImage::symbol(const std::string& name) const {
    const std::lock_guard lock(mutex_);
    return handle_ == nullptr ? nullptr : dlsym(handle_, name.c_str());
}

void LoadedImage::pin() {
    const std::lock_guard lock(mutex_);
    ++pins_;
}

bool LoadedImage::unpin() {
    const std::lock_guard lock(mutex_);
    return --pins_ == 0;
}

LoadedImage::Handle LoadedImage::giveUpUnlessPinned() {
    const std::lock_guard lock(mutex_);
    return pins_ > 0 ? nullptr : std::exchange(handle_, nullptr);
}

void LoadedImage::close(Handle handle) {
    if (handle != nullptr) {
        dlclose(handle);
    }
}

}  // namespace platform::cf
