#include "Platform/Foundation/Stream.h"

#include "Platform/Foundation/ErrnoError.h"
#include "Platform/Foundation/Failure.h"

namespace platform {

bool Stream::beginOpening() {
    if (streamStatus() != StreamStatus::NotOpen) {
        return false;
    }
    status_ = StreamStatus::Opening;
    return true;
}

void Stream::fail(int errnoValue) {
    error_ = posixErrorForErrno(errnoValue);
    status_ = StreamStatus::Error;
    noteFailure(error_->description);
}

void Stream::endByClosing() {
    if (status_ != StreamStatus::NotOpen) {
        status_ = StreamStatus::Closed;
    }
}

}  // namespace platform
