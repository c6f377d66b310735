#include "Platform/CoreFoundation/BundleRegistry.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include "Platform/Foundation/Log.h"

namespace platform::cf {

BundleRegistry& BundleRegistry::shared() {
    static auto& registry = *new BundleRegistry;
    return registry;
}

Owned<CFBundleRef> BundleRegistry::open(const std::string& path) {
    {
        const std::lock_guard lock(mutex_);
        if (const Bundle* bundle = findOpen(path)) {
            return Owned<CFBundleRef>(refOf(bundle));
        }
    }
    std::error_code error;
    if (!std::filesystem::is_directory(path, error)) {
        return {};
    }
    const auto* const made = new Bundle(path);
    Owned<CFBundleRef> owned(refOf(made));
    // Destroyed after the lock: what is not wanted goes through the registry again.
    Owned<CFBundleRef> unwanted;
    const std::lock_guard lock(mutex_);
    if (const Bundle* bundle = findOpen(path)) {
        unwanted = std::exchange(owned, Owned<CFBundleRef>(refOf(bundle)));
    } else if (!enter(*made)) {
        unwanted = std::exchange(owned, {});
    }
    return owned;
}

const Bundle* BundleRegistry::findOpen(const std::string& path) {
    const auto found = bundles_.find(path);
    if (found == bundles_.end()) {
        return nullptr;
    }
    found->second.bundle->retain();
    return found->second.bundle;
}

bool BundleRegistry::enter(const Bundle& bundle) {
    for (const auto& [uuid, description] : bundle.factories()) {
        if (factories_.contains(uuid)) {
            platform::log("CFPlugIn: a factory of " + bundle.path() +
                          " belongs to another bundle already");
            return false;
        }
    }
    try {
        bundles_.emplace(bundle.path(), Entry{&bundle});
        makeRoomForGoneBundles();
        for (const auto& [uuid, description] : bundle.factories()) {
            factories_.emplace(uuid, Factory{&bundle});
        }
    } catch (...) {
        leave(bundle);
        throw;
    }
    return true;
}

void BundleRegistry::leave(const Bundle& bundle) noexcept {
    const auto found = bundles_.find(bundle.path());
    if (found != bundles_.end() && found->second.bundle == &bundle) {
        bundles_.erase(found);
    }
    for (const auto& [uuid, description] : bundle.factories()) {
        const auto factory = factories_.find(uuid);
        if (factory != factories_.end() && factory->second.bundle == &bundle) {
            factories_.erase(factory);
        }
    }
}

// A release cannot fail for want of memory, so there is room for the code of every open bundle.
void BundleRegistry::makeRoomForGoneBundles() {
    const std::size_t needed = dueOfGoneBundles_.size() + bundles_.size();
    if (dueOfGoneBundles_.capacity() < needed) {
        dueOfGoneBundles_.reserve(2 * needed);
    }
}

void BundleRegistry::setDue(const Bundle& bundle, bool isDue) noexcept {
    const auto found = bundles_.find(bundle.path());
    if (found != bundles_.end()) {
        found->second.isDue = isDue;
    }
}

std::vector<UUIDBytes> BundleRegistry::factoriesOfType(const UUIDBytes& type,
                                                       const Bundle* bundle) {
    std::vector<UUIDBytes> found;
    const std::lock_guard lock(mutex_);
    for (const auto& [uuid, factory] : factories_) {
        if ((bundle == nullptr || factory.bundle == bundle) &&
            factory.bundle->factories().at(uuid).types.contains(type)) {
            found.push_back(uuid);
        }
    }
    return found;
}

Owned<CFBundleRef> BundleRegistry::bundleOfFactory(const UUIDBytes& factory) {
    const std::lock_guard lock(mutex_);
    const auto found = factories_.find(factory);
    if (found == factories_.end()) {
        return {};
    }
    found->second.bundle->retain();
    return Owned<CFBundleRef>(refOf(found->second.bundle));
}

void BundleRegistry::addInstance(const UUIDBytes& factory) {
    const std::lock_guard lock(mutex_);
    const auto found = factories_.find(factory);
    if (found == factories_.end()) {
        return;
    }
    const Bundle& bundle = *found->second.bundle;
    ++found->second.instances;
    bundle.retain();
    bundle.image().pin();
    setDue(bundle, false);
}

void BundleRegistry::removeInstance(const UUIDBytes& factory) {
    // Given back after the lock.
    Owned<CFBundleRef> ownership;
    const std::lock_guard lock(mutex_);
    const auto found = factories_.find(factory);
    if (found == factories_.end() || found->second.instances == 0) {
        return;
    }
    const Bundle& bundle = *found->second.bundle;
    --found->second.instances;
    if (bundle.image().unpin() && bundle.isPlugInOnDemand()) {
        setDue(bundle, true);
    }
    ownership = Owned<CFBundleRef>(refOf(&bundle));
}

void BundleRegistry::unload(const Bundle& bundle) {
    std::vector<LoadedImage::Handle> handles;
    {
        const std::lock_guard lock(mutex_);
        setDue(bundle, true);
        handles = dueOfGoneBundles_;
        handles.reserve(handles.size() + bundles_.size());
        dueOfGoneBundles_.clear();
        for (auto& [path, entry] : bundles_) {
            if (std::exchange(entry.isDue, false)) {
                handles.push_back(entry.bundle->image().giveUpUnlessPinned());
            }
        }
    }
    // Unmapping runs code of the images.
    for (const LoadedImage::Handle handle : handles) {
        LoadedImage::close(handle);
    }
}

void BundleRegistry::releaseLast(const Bundle& bundle) noexcept {
    {
        const std::lock_guard lock(mutex_);
        // Whoever opened the bundle again meanwhile has become an owner.
        if (!bundle.dropOwner()) {
            return;
        }
        leave(bundle);
        if (const LoadedImage::Handle handle = bundle.image().giveUpUnlessPinned()) {
            dueOfGoneBundles_.push_back(handle);
        }
    }
    delete &bundle;
}

}  // namespace platform::cf
