#include "Tools/pvdoc/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>

#include "Platform/Foundation/FileContents.h"
#include "Platform/Foundation/FileDescriptor.h"

namespace pvdoc {

using platform::Data;
using platform::Fault;
using platform::FaultCode;

platform::Result<Data> readFile(const std::string& path) {
    const auto file = platform::FileDescriptor::open(path, O_RDONLY | O_NONBLOCK);
    struct stat status {};
    if (!file.isOpen() || ::fstat(file.number(), &status) != 0) {
        return Fault{FaultCode::System, std::strerror(errno)};
    }
    if (!S_ISREG(status.st_mode)) {
        return Fault{FaultCode::System, "not a regular file"};
    }
    auto contents = platform::contentsOfFile(file, static_cast<std::size_t>(status.st_size));
    if (!contents) {
        return Fault{FaultCode::System, std::strerror(errno)};
    }
    return *std::move(contents);
}

}  // namespace pvdoc
