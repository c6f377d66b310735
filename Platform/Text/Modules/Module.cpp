#include "Platform/Text/Modules/Module.h"

#include <dlfcn.h>
#include <link.h>
#include <unistd.h>

#include <array>
#include <climits>
#include <filesystem>
#include <string>

#include "Platform/Foundation/Exception.h"
#include "Platform/Foundation/IdleResources.h"

namespace platform {
namespace {

// From the plug-in's folder, and from a program's in the build tree and where it is installed.
constexpr const char* kPlaces[] = {
    "Modules",
    "../Parlavox.mdimporter/Contents/Linux/Modules",
    "../lib/parlavox/Parlavox.mdimporter/Contents/Linux/Modules",
};

std::string folderOfProgram() {
    std::array<char, PATH_MAX> path{};
    const ssize_t size = ::readlink("/proc/self/exe", path.data(), path.size());
    return std::filesystem::path(std::string(path.data(), size > 0 ? size : 0)).parent_path();
}

/// The folder of the file that holds this code, a library or the program itself.
std::string folderOfThisCode() {
    Dl_info info{};
    link_map* image = nullptr;
    std::array<char, PATH_MAX> folder{};
    const bool isLibrary = ::dladdr1(reinterpret_cast<const void*>(&openModule), &info,
                                     reinterpret_cast<void**>(&image), RTLD_DL_LINKMAP) != 0 &&
                           image->l_name[0] != '\0' &&
                           ::dlinfo(image, RTLD_DI_ORIGIN, folder.data()) == 0;
    return isLibrary ? folder.data() : folderOfProgram();
}

[[noreturn]] void fail(const char* name, const std::string& why) {
    raise(
        InternalInconsistencyException("cannot open the module " + std::string(name) + ": " + why));
}

std::string pathOfModule(const char* name) {
    const std::string folder = folderOfThisCode();
    for (const char* place : kPlaces) {
        std::string path = folder + "/" + place + "/" + name + ".so";
        if (::access(path.c_str(), R_OK) == 0) {
            return path;
        }
    }
    fail(name, "not found from " + folder);
}

std::string lastError() {
    const char* const error = ::dlerror();
    return error == nullptr ? "unknown error" : error;
}

}  // namespace

const ModuleHead* openModule(const char* name) {
    void* const handle =
        ::dlopen(pathOfModule(name).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (handle == nullptr) {
        fail(name, lastError());
    }
    using Entry = const ModuleHead* (*)();
    const auto entry = reinterpret_cast<Entry>(::dlsym(handle, "parlavoxModule"));
    if (entry == nullptr) {
        fail(name, lastError());
    }
    const ModuleHead* const head = entry();
    addIdleResources(head->releaseIdle);
    return head;
}

}  // namespace platform
