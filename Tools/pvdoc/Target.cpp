#include "Tools/pvdoc/Target.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "Platform/Foundation/Failure.h"
#include "Platform/Foundation/FileDescriptor.h"
#include "Platform/Foundation/FileManager.h"
#include "Platform/Foundation/PathString.h"
#include "Platform/Foundation/StagedItem.h"

namespace pvdoc {

using platform::Fault;
using platform::FaultCode;
using platform::Outcome;

namespace {

/// Asks the disk to keep the file. Only then may it replace another one: a disk that turns out to
/// be full says so here at the latest.
Outcome keep(const std::string& path) {
    const auto file = platform::FileDescriptor::open(path, O_RDONLY);
    if (!file.isOpen() || ::fsync(file.number()) != 0) {
        return systemFault(errno);
    }
    return platform::done();
}

}  // namespace

Outcome checkTarget(const std::string& path, Overwrite overwrite) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return platform::done();
    }
    if (overwrite == Overwrite::No) {
        return Fault{FaultCode::System, path + ": is there already; --force replaces it", true};
    }
    const bool isThere = ::stat(path.c_str(), &status) == 0;
    if (isThere && !S_ISREG(status.st_mode)) {
        return Fault{FaultCode::System, path + ": is no regular file and not replaced", true};
    }
    return platform::done();
}

Outcome writeBeside(const std::string& path, const Writing& write) {
    platform::StagedItem staged(
        platform::FileManager::defaultManager().stringByResolvingSymlinksInPath(path));
    if (!staged.isMade()) {
        return inFile(path, systemFault(errno));
    }
    const Outcome written = write(staged.path());
    if (!written) {
        return inFile(path, written.fault());
    }
    const Outcome kept = keep(staged.path());
    if (!kept) {
        return inFile(path, kept.fault());
    }
    return staged.putInPlace() ? platform::done() : Outcome(inFile(path, systemFault(errno)));
}

Fault inFile(std::string_view path, const Fault& fault) {
    return {fault.code, std::string(path) + ": " + fault.detail, true};
}

std::string withoutPath(std::string_view path, std::string_view cause) {
    const std::string folder = platform::stringByDeletingLastPathComponent(path) + '/';
    const std::string name = platform::lastPathComponent(path) + ": ";
    const std::size_t place = cause.find(name);
    if (!path.empty() && cause.starts_with(folder) && place != std::string_view::npos) {
        cause.remove_prefix(place + name.size());
    }
    return std::string(cause);
}

std::string causeOfFailure(std::string_view written, std::string_view otherwise) {
    const char* const noted = platform::lastFailure();
    return withoutPath(written, noted != nullptr ? noted : otherwise);
}

Fault systemFault(int error) {
    return {FaultCode::System, std::strerror(error)};
}

}  // namespace pvdoc
