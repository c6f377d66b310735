#include "Host/ImporterBundle.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "Host/ImporterInformation.h"

namespace host {
namespace {

using platform::Fault;
using platform::FaultCode;

platform::Outcome checkFolder(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return Fault{FaultCode::System, std::strerror(errno)};
    }
    if (!S_ISDIR(status.st_mode)) {
        return Fault{FaultCode::System, std::strerror(ENOTDIR)};
    }
    return platform::done();
}

// An instance of any interface begins with a table that begins like this one.
const IUnknownVTbl& tableOf(void* instance) {
    return **static_cast<const IUnknownVTbl* const*>(instance);
}

}  // namespace

platform::Result<ImporterBundle> ImporterBundle::open(const std::string& path) {
    PV_TRY(checkFolder(path));
    const Owner<CFURLRef> url(CFURLCreateFromFileSystemRepresentation(
        kCFAllocatorDefault, reinterpret_cast<const UInt8*>(path.data()),
        static_cast<CFIndex>(path.size()), true));
    Owner<CFPlugInRef> plugIn(url ? CFPlugInCreate(kCFAllocatorDefault, url.get()) : nullptr);
    if (!plugIn) {
        return Fault{FaultCode::Malformed, "cannot be opened as a bundle"};
    }
    Owner<CFArrayRef> factories(
        CFPlugInFindFactoriesForPlugInTypeInPlugIn(kMDImporterTypeID, plugIn.get()));
    if (!factories) {
        return Fault{FaultCode::Malformed, "is not an importer: it declares no factory of one"};
    }
    ImporterTypes types =
        importerTypesOf(CFBundleGetInfoDictionary(CFPlugInGetBundle(plugIn.get())));
    return ImporterBundle(std::move(plugIn), std::move(factories), std::move(types));
}

void* ImporterBundle::makeInstance() const {
    void* instance = nullptr;
    const CFIndex count = CFArrayGetCount(factories_.get());
    for (CFIndex i = 0; instance == nullptr && i < count; ++i) {
        const auto* factory = static_cast<CFUUIDRef>(CFArrayGetValueAtIndex(factories_.get(), i));
        instance = CFPlugInInstanceCreate(kCFAllocatorDefault, factory, kMDImporterTypeID);
    }
    return instance;
}

LastFailureFunction ImporterBundle::lastFailureFunction() const {
    return reinterpret_cast<LastFailureFunction>(CFBundleGetFunctionPointerForName(
        CFPlugInGetBundle(plugIn_.get()), CFSTR("ParlavoxImporterLastFailure")));
}

platform::Result<Importer> ImporterBundle::makeImporter() const {
    void* instance = makeInstance();
    if (instance == nullptr) {
        const bool isLoaded = CFBundleIsExecutableLoaded(CFPlugInGetBundle(plugIn_.get())) != 0;
        return Fault{FaultCode::Unsupported,
                     isLoaded ? "its factory makes no importer" : "its code cannot be loaded"};
    }
    void* importer = nullptr;
    const HRESULT answer = tableOf(instance).QueryInterface(
        instance, CFUUIDGetUUIDBytes(kMDImporterInterfaceID), &importer);
    // The first reference was only good for asking.
    tableOf(instance).Release(instance);
    if (FAILED(answer) || importer == nullptr) {
        return Fault{FaultCode::Unsupported, "its object has no importer interface"};
    }
    return Importer(static_cast<MetadataImporterPluginType*>(importer), lastFailureFunction());
}

}  // namespace host
