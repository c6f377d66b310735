// What streams of both directions have in common: they are opened once, closed once, and know
// their status and the error that ended them.
//
// One thread at a time.

#pragma once

#include <optional>

#include "Platform/Foundation/Error.h"
#include "Platform/Foundation/StreamStatus.h"

namespace platform {

/// The base of InputStream and OutputStream.
class Stream {
public:
    virtual ~Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    /// Opens the stream. A failure shows in the status, which is then Error. Does nothing to a
    /// stream that was opened before, whatever came of it.
    ///
    /// Selector: open
    virtual void open() = 0;

    /// Closes the stream for good; one that was never opened stays so.
    ///
    /// Selector: close
    virtual void close() = 0;

    /// Selector: streamStatus
    [[nodiscard]] virtual StreamStatus streamStatus() const { return status_; }

    /// Returns the error that ended the stream, in the domain of errno values; nothing while there
    /// was none. It outlives closing.
    ///
    /// Selector: streamError
    [[nodiscard]] virtual std::optional<Error> streamError() const { return error_; }

protected:
    Stream() = default;

    /// Whether the stream may be opened now; its status is Opening then.
    [[nodiscard]] bool beginOpening();

    /// Ends the stream with an errno value, which is noted as the thread's failure as well.
    void fail(int errnoValue);

    void setStatus(StreamStatus status) { status_ = status; }

    /// Sets the status to Closed, unless the stream was never opened.
    void endByClosing();

private:
    StreamStatus status_ = StreamStatus::NotOpen;
    std::optional<Error> error_;
};

}  // namespace platform
