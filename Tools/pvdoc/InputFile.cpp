#include "Tools/pvdoc/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "Platform/Foundation/FileContents.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/TypeRegistry.h"

namespace pvdoc {

using platform::Data;
using platform::Fault;
using platform::FaultCode;

using platform::Result;

Result<InputFile> openFile(const std::string& path) {
    auto file = platform::FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) {
        return Fault{FaultCode::System, std::strerror(errno)};
    }
    if (!S_ISREG(status.st_mode)) {
        return Fault{FaultCode::System, "not a regular file"};
    }
    return InputFile{std::move(file), static_cast<std::uint64_t>(status.st_size)};
}

Result<Data> readFile(const std::string& path) {
    const InputFile file = PV_TRY(openFile(path));
    auto contents = platform::contentsOfFile(file.descriptor, file.size);
    if (!contents) {
        return Fault{FaultCode::System, std::strerror(errno)};
    }
    return *std::move(contents);
}

Result<Data> readDocumentFile(const std::string& path) {
    const auto types =
        platform::TypeRegistry::typesForFilenameExtension(platform::pathExtension(path));
    const bool isPackage = !types.empty() && platform::TypeRegistry::typeConformsToType(
                                                 types.front(), "com.apple.package");
    const auto attributes = platform::FileManager::defaultManager().attributesOfItemAtPath(path);
    const bool isFolder = attributes && attributes->type == platform::FileType::Directory;
    return isPackage && isFolder ? Data() : readFile(path);
}

}  // namespace pvdoc
