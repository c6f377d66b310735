#include "Platform/Foundation/ErrnoError.h"

#include <cerrno>
#include <string>
#include <system_error>

namespace platform {
namespace {

CocoaErrorCode readingCode(int errnoValue) {
    switch (errnoValue) {
        case ENOENT:
            return kFileReadNoSuchFileError;
        case EACCES:
        case EPERM:
            return kFileReadNoPermissionError;
        case ENAMETOOLONG:
            return kFileReadInvalidFileNameError;
        case EFBIG:
            return kFileReadTooLargeError;
        default:
            return kFileReadUnknownError;
    }
}

CocoaErrorCode writingCode(int errnoValue) {
    switch (errnoValue) {
        case ENOENT:
            return kFileNoSuchFileError;
        case EACCES:
        case EPERM:
            return kFileWriteNoPermissionError;
        case ENAMETOOLONG:
            return kFileWriteInvalidFileNameError;
        case EEXIST:
            return kFileWriteFileExistsError;
        case ENOSPC:
        case EDQUOT:
            return kFileWriteOutOfSpaceError;
        case EROFS:
            return kFileWriteVolumeReadOnlyError;
        default:
            return kFileWriteUnknownError;
    }
}

std::string systemWords(int errnoValue) {
    return std::generic_category().message(errnoValue);
}

}  // namespace

Error posixErrorForErrno(int errnoValue) {
    return {std::string(kPosixErrorDomain), errnoValue, systemWords(errnoValue)};
}

Error cocoaErrorForErrno(int errnoValue, FileAccess access, std::string_view path) {
    const CocoaErrorCode code =
        access == FileAccess::Reading ? readingCode(errnoValue) : writingCode(errnoValue);
    return {std::string(kCocoaErrorDomain), code,
            std::string(path) + ": " + systemWords(errnoValue)};
}

}  // namespace platform
