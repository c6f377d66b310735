// A sink for bytes.
//
// Streams are shared; whoever opens one writes it on one thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Stream.h"

namespace platform {

/// What happens to a file that is there already.
enum class FileAppending : bool { No, Yes };

/// What all output streams answer. Derived classes may write to anywhere and fail as they like.
class OutputStream : public Stream {
public:
    /// Returns a stream that writes the file at `path`, from its start or appending to it. Whether
    /// it can be written shows at opening, which makes the file and, unless appending, empties it.
    ///
    /// Selector: outputStreamToFileAtPath:append:
    [[nodiscard]] static std::shared_ptr<OutputStream> outputStreamToFileAtPath(
        std::string path, FileAppending append);

    /// Returns a stream that keeps in memory what is written to it.
    ///
    /// Selector: outputStreamToMemory
    [[nodiscard]] static std::shared_ptr<OutputStream> outputStreamToMemory();

    /// Writes `bytes` and returns the count, which is smaller than their size only before an error.
    /// Returns -1 when the stream is not open, or after an error, which the status then tells.
    ///
    /// Writing no bytes ends the stream, as intended: it returns 0, the status is AtEnd, and all
    /// later writes return -1.
    ///
    /// Selector: write:
    [[nodiscard]] virtual std::int64_t write(std::span<const std::byte> bytes) = 0;

    /// Returns the place in the file where the next byte goes. Nothing for a stream that is not
    /// open, that appends, or that writes no file. (The platform's NSStreamFileCurrentOffsetKey.)
    [[nodiscard]] virtual std::optional<std::int64_t> currentFileOffset() const;

    /// Returns everything that was written to memory, also once the stream is closed. Nothing for a
    /// stream that writes elsewhere. (The platform's NSStreamDataWrittenToMemoryStreamKey.)
    [[nodiscard]] virtual std::optional<Data> dataWritten() const;
};

}  // namespace platform
