// An error object: a domain, a code within it, and a description for people.
//
// Operations that take an error location take a pointer to an optional Error, null when the caller
// is not interested. Immutable by use; any thread.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The domain of the platform's own error codes.
inline constexpr std::string_view kCocoaErrorDomain = "NSCocoaErrorDomain";

/// The domain of errno values.
inline constexpr std::string_view kPosixErrorDomain = "NSPOSIXErrorDomain";

/// Codes of the platform's own domain.
enum CocoaErrorCode : std::int64_t {
    kFileNoSuchFileError = 4,
    kFileReadUnknownError = 256,
    kFileReadNoPermissionError = 257,
    kFileReadInvalidFileNameError = 258,
    kFileReadCorruptFileError = 259,
    kFileReadNoSuchFileError = 260,
    kFileReadTooLargeError = 263,
    kFileWriteUnknownError = 512,
    kFileWriteNoPermissionError = 513,
    kFileWriteInvalidFileNameError = 514,
    kFileWriteFileExistsError = 516,
    kFileWriteOutOfSpaceError = 640,
    kFileWriteVolumeReadOnlyError = 642,
    kPropertyListReadCorruptError = 3840,
};

/// A domain and a code; the description may be empty.
struct Error {
    std::string domain;
    std::int64_t code = 0;
    std::string description;

    friend bool operator==(const Error&, const Error&) = default;
};

/// Where an operation may leave an error: null, or a place that the caller owns.
using ErrorLocation = std::optional<Error>*;

/// Leaves `error` at `location` when the caller gave one.
inline void leaveError(ErrorLocation location, Error error) {
    if (location != nullptr) {
        *location = std::move(error);
    }
}

}  // namespace platform
