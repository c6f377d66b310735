#include "Platform/CoreFoundation/CFPlugIn.h"

#include <memory>
#include <vector>

#include "Platform/CoreFoundation/Array.h"
#include "Platform/CoreFoundation/Bundle.h"
#include "Platform/CoreFoundation/BundleRegistry.h"
#include "Platform/CoreFoundation/UUID.h"
#include "Platform/Foundation/Log.h"

namespace platform::cf {
namespace {

/// The identifiers as an array that the caller owns; NULL for none.
CFArrayRef arrayOfUUIDs(const std::vector<UUIDBytes>& uuids) {
    if (uuids.empty()) {
        return nullptr;
    }
    auto array = std::make_unique<Array>(Changes::Never, &kCFTypeArrayCallBacks);
    for (const UUIDBytes& bytes : uuids) {
        const Owned<CFUUIDRef> uuid(refOf(UUID::of(bytes)));
        array->append(uuid.get());
    }
    return refOf(array.release());
}

CFArrayRef factoriesOfType(CFUUIDRef type, const Bundle* bundle, const char* function) {
    const UUIDBytes& bytes = objectAs<UUID>(type, function).bytes();
    return orNull(
        [&] { return arrayOfUUIDs(BundleRegistry::shared().factoriesOfType(bytes, bundle)); });
}

/// The factory's function, NULL when it does not make the type or cannot be had.
CFPlugInFactoryFunction functionOfFactory(const Bundle& bundle, const UUIDBytes& factory,
                                          const UUIDBytes& type) {
    const FactoryDescription& description = bundle.factories().at(factory);
    if (!description.types.contains(type) || !bundle.load()) {
        return nullptr;
    }
    void* const symbol = bundle.image().symbol(description.functionName);
    if (symbol == nullptr) {
        platform::log("CFPlugIn: no function " + description.functionName + " in " + bundle.path());
    }
    return reinterpret_cast<CFPlugInFactoryFunction>(symbol);
}

}  // namespace
}  // namespace platform::cf

using platform::cf::Bundle;
using platform::cf::BundleRegistry;
using platform::cf::factoriesOfType;
using platform::cf::functionOfFactory;
using platform::cf::ImagePin;
using platform::cf::objectAs;
using platform::cf::orNull;
using platform::cf::Owned;
using platform::cf::UUID;
using platform::cf::UUIDBytes;

extern "C" {

CFTypeID CFPlugInGetTypeID(void) {
    return CFBundleGetTypeID();
}

CFPlugInRef CFPlugInCreate(CFAllocatorRef allocator, CFURLRef plugInURL) {
    return CFBundleCreate(allocator, plugInURL);
}

CFBundleRef CFPlugInGetBundle(CFPlugInRef plugIn) {
    objectAs<Bundle>(plugIn, "CFPlugInGetBundle");
    return plugIn;
}

Boolean CFPlugInIsLoadOnDemand(CFPlugInRef plugIn) {
    return objectAs<Bundle>(plugIn, "CFPlugInIsLoadOnDemand").isPlugInOnDemand();
}

CFArrayRef CFPlugInFindFactoriesForPlugInType(CFUUIDRef typeUUID) {
    return factoriesOfType(typeUUID, nullptr, "CFPlugInFindFactoriesForPlugInType");
}

CFArrayRef CFPlugInFindFactoriesForPlugInTypeInPlugIn(CFUUIDRef typeUUID, CFPlugInRef plugIn) {
    constexpr auto kName = "CFPlugInFindFactoriesForPlugInTypeInPlugIn";
    return factoriesOfType(typeUUID, &objectAs<Bundle>(plugIn, kName), kName);
}

void* CFPlugInInstanceCreate(CFAllocatorRef allocator, CFUUIDRef factoryUUID, CFUUIDRef typeUUID) {
    const UUIDBytes& factory = objectAs<UUID>(factoryUUID, "CFPlugInInstanceCreate").bytes();
    const UUIDBytes& type = objectAs<UUID>(typeUUID, "CFPlugInInstanceCreate").bytes();
    const Owned<CFBundleRef> owned = BundleRegistry::shared().bundleOfFactory(factory);
    if (!owned) {
        return nullptr;
    }
    const auto& bundle = objectAs<Bundle>(owned.get(), "CFPlugInInstanceCreate");
    // Nobody unloads the code between the search for the function and its return.
    const ImagePin pin(bundle.image());
    const CFPlugInFactoryFunction function =
        orNull([&] { return functionOfFactory(bundle, factory, type); });
    // What the plug-in throws passes through.
    return function == nullptr ? nullptr : function(allocator, typeUUID);
}

void CFPlugInAddInstanceForFactory(CFUUIDRef factoryID) {
    BundleRegistry::shared().addInstance(
        objectAs<UUID>(factoryID, "CFPlugInAddInstanceForFactory").bytes());
}

void CFPlugInRemoveInstanceForFactory(CFUUIDRef factoryID) {
    BundleRegistry::shared().removeInstance(
        objectAs<UUID>(factoryID, "CFPlugInRemoveInstanceForFactory").bytes());
}

}  // extern "C"
