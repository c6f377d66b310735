// The open bundles of the process and the factories they declare.
//
// A bundle stands in the registry from its opening to the release of its last owner; the registry
// owns none. One lock guards it; it is never held while the loader or code of a bundle runs.

#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "Platform/CoreFoundation/Bundle.h"

namespace platform::cf {

class BundleRegistry {
public:
    /// The process's registry; it is never destroyed.
    [[nodiscard]] static BundleRegistry& shared();

    /// Returns the bundle in the folder at `path` (plain, from the root), owned by the caller: the
    /// open one, or a new one. Null when there is no such folder or one of the bundle's factories
    /// belongs to another bundle. May throw std::bad_alloc.
    [[nodiscard]] Owned<CFBundleRef> open(const std::string& path);

    /// Returns the identifiers of all factories of `type`, those of `bundle` alone unless it is
    /// null.
    [[nodiscard]] std::vector<UUIDBytes> factoriesOfType(const UUIDBytes& type,
                                                         const Bundle* bundle);

    /// Returns the bundle of the factory, owned by the caller; null when no open bundle has it.
    [[nodiscard]] Owned<CFBundleRef> bundleOfFactory(const UUIDBytes& factory);

    /// Counts one more instance of the factory, which keeps its bundle and the code.
    void addInstance(const UUIDBytes& factory);

    /// Counts one less. With a plug-in's last one its code is due to be unloaded.
    void removeInstance(const UUIDBytes& factory);

    /// Unloads the code of `bundle`, unless instances keep it, and all code that is due.
    void unload(const Bundle& bundle);

private:
    friend class Bundle;

    struct Factory {
        const Bundle* bundle;
        long instances = 0;
    };

    BundleRegistry() = default;

    /// Takes an owner of `bundle` away and, if it was the last, the bundle. Its code, which may be
    /// what calls, becomes due to be unloaded.
    void releaseLast(const Bundle& bundle) noexcept;

    // These want mutex_ held.
    [[nodiscard]] const Bundle* findOpen(const std::string& path);
    [[nodiscard]] bool enter(const Bundle& bundle);
    void leave(const Bundle& bundle) noexcept;
    void makeRoomForGoneBundles();
    void setDue(const Bundle& bundle, bool isDue) noexcept;

    struct Entry {
        const Bundle* bundle;
        bool isDue = false;
    };

    std::mutex mutex_;
    std::map<std::string, Entry> bundles_;    // guarded by mutex_
    std::map<UUIDBytes, Factory> factories_;  // guarded by mutex_
    // The code of bundles that were released while it was loaded; guarded by mutex_.
    std::vector<LoadedImage::Handle> dueOfGoneBundles_;
};

}  // namespace platform::cf
