#include "Sources/Importer/MetadataImporterPlugin.h"

#include <atomic>
#include <cstdlib>

#include "Platform/Foundation/IdleResources.h"

namespace {

constexpr HRESULT kSuccess = 0;
constexpr HRESULT kNoSuchInterface = static_cast<HRESULT>(0x80000004);

constexpr MDImporterInterfaceStruct kInterfaceTable = {
    nullptr,
    MetadataImporterQueryInterface,
    MetadataImporterPluginAddRef,
    MetadataImporterPluginRelease,
    GetMetadataForFile,
};

/// While there is none, nothing is kept for a next use.
constinit std::atomic<long> liveInstances = 0;

MetadataImporterPluginType& instanceAt(void* instance) {
    return *static_cast<MetadataImporterPluginType*>(instance);
}

}  // namespace

void* MetadataImporterPluginFactory(CFAllocatorRef, CFUUIDRef typeID) noexcept {
    if (!CFEqual(typeID, kMDImporterTypeID)) {
        return nullptr;
    }
    const CFUUIDRef factoryID =
        CFUUIDCreateFromString(kCFAllocatorDefault, CFSTR(kMetadataImporterPluginFactoryID));
    MetadataImporterPluginType* const instance = AllocMetadataImporterPluginType(factoryID);
    CFRelease(factoryID);
    return instance;
}

MetadataImporterPluginType* AllocMetadataImporterPluginType(CFUUIDRef factoryID) noexcept {
    auto* const instance = static_cast<MetadataImporterPluginType*>(
        std::calloc(1, sizeof(MetadataImporterPluginType)));
    instance->conduitInterface = &kInterfaceTable;
    instance->factoryID = static_cast<CFUUIDRef>(CFRetain(factoryID));
    CFPlugInAddInstanceForFactory(factoryID);
    instance->refCount = 1;
    ++liveInstances;
    return instance;
}

void DeallocMetadataImporterPluginType(MetadataImporterPluginType* instance) noexcept {
    const CFUUIDRef factoryID = instance->factoryID;
    // The record goes first, by intention: only then the host hears of it.
    std::free(instance);
    if (--liveInstances == 0) {
        platform::releaseIdleResources();
    }
    if (factoryID != nullptr) {
        CFPlugInRemoveInstanceForFactory(factoryID);
        CFRelease(factoryID);
    }
}

HRESULT MetadataImporterQueryInterface(void* instance, REFIID interfaceID,
                                       LPVOID* result) noexcept {
    const CFUUIDRef asked = CFUUIDCreateFromUUIDBytes(kCFAllocatorDefault, interfaceID);
    const bool isKnown = CFEqual(asked, kMDImporterInterfaceID) || CFEqual(asked, IUnknownUUID);
    if (isKnown) {
        instanceAt(instance).conduitInterface->AddRef(instance);
    }
    *result = isKnown ? instance : nullptr;
    CFRelease(asked);
    return isKnown ? kSuccess : kNoSuchInterface;
}

ULONG MetadataImporterPluginAddRef(void* instance) noexcept {
    return ++instanceAt(instance).refCount;
}

ULONG MetadataImporterPluginRelease(void* instance) noexcept {
    const ULONG count = --instanceAt(instance).refCount;
    if (count == 0) {
        DeallocMetadataImporterPluginType(&instanceAt(instance));
    }
    return count;
}
