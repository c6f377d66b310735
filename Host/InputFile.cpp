#include "Host/InputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

#include "Platform/Foundation/Unicode.h"

namespace host {
namespace {

using platform::FileDescriptor;

using platform::Fault;
using platform::FaultCode;

Fault systemFault() {
    return {FaultCode::System, std::strerror(errno)};
}

bool isFileOrFolder(const struct stat& status) {
    return S_ISREG(status.st_mode) || S_ISDIR(status.st_mode);
}

std::string bytesAt(int descriptor, off_t offset, std::size_t size) {
    std::string bytes(size, '\0');
    std::size_t count = 0;
    while (count < size) {
        const ssize_t step = ::pread(descriptor, bytes.data() + count, size - count,
                                     offset + static_cast<off_t>(count));
        if (step > 0) {
            count += static_cast<std::size_t>(step);
        } else if (step == 0 || errno != EINTR) {
            break;
        }
    }
    bytes.resize(count);
    return bytes;
}

// A byte-order mark at the beginning does not survive in a string of CoreFoundation's.
bool survivesAsText(std::string_view path) {
    return platform::isAscii(path) ||
           (!path.starts_with("\xEF\xBB\xBF") && platform::utf16FromUtf8(path));
}

std::string pathOf(const FileDescriptor& descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor.number());
}

}  // namespace

platform::Result<InputFile> InputFile::open(std::string path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return systemFault();
    }
    const Fault notRegular{FaultCode::Unsupported, "not a regular file"};
    if (!isFileOrFolder(status)) {
        return notRegular;
    }
    // What was looked at may have been replaced since: a pipe must not keep us waiting.
    FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!descriptor.isOpen() || ::fstat(descriptor.number(), &status) != 0) {
        return systemFault();
    }
    if (!isFileOrFolder(status)) {
        return notRegular;
    }
    return InputFile(std::move(path), std::move(descriptor), S_ISDIR(status.st_mode));
}

InputFile::InputFile(std::string path, FileDescriptor descriptor, bool isFolder)
    : path_(std::move(path)), descriptor_(std::move(descriptor)), isFolder_(isFolder) {
    pathAsText_ = survivesAsText(path_) ? path_ : pathOf(descriptor_);
}

std::string InputFile::firstBytes(std::size_t size) const {
    return bytesAt(descriptor_.number(), 0, size);
}

std::string InputFile::lastBytes(std::size_t size) const {
    struct stat status {};
    if (::fstat(descriptor_.number(), &status) != 0) {
        return {};
    }
    const auto wanted = static_cast<off_t>(size);
    const off_t offset = std::max<off_t>(0, status.st_size - wanted);
    return bytesAt(descriptor_.number(), offset, std::min(wanted, status.st_size - offset));
}

}  // namespace host
