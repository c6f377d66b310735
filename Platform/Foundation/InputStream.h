// A source of bytes that are read once, from front to back.
//
// Streams are shared; whoever opens one reads it on one thread at a time.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Stream.h"

namespace platform {

/// What all input streams answer. Derived classes may read from anywhere and fail as they like.
class InputStream : public Stream {
public:
    /// Returns a stream that reads the file at `path`. Whether it is there shows at opening.
    ///
    /// Selector: inputStreamWithFileAtPath:
    [[nodiscard]] static std::shared_ptr<InputStream> inputStreamWithFileAtPath(std::string path);

    /// Returns a stream that reads `data`.
    ///
    /// Selector: inputStreamWithData:
    [[nodiscard]] static std::shared_ptr<InputStream> inputStreamWithData(Data data);

    /// Fills `buffer` from its start and returns the count, which is smaller than the buffer only
    /// before the end or an error. Returns 0 at the end; -1 when the stream is not open, or after
    /// an error, which the status then tells. An empty buffer reads nothing and changes nothing.
    ///
    /// Selector: read:
    [[nodiscard]] virtual std::int64_t read(std::span<std::byte> buffer) = 0;

    /// Whether reading may give bytes. It may be true although none are left, as the end of a file
    /// is known only once it has been reached.
    ///
    /// Selector: hasBytesAvailable
    [[nodiscard]] virtual bool hasBytesAvailable() const;

protected:
    /// What reading answers without looking at the source: 0 at the end, -1 unless the status is
    /// Open, and nothing when there is something to try.
    [[nodiscard]] std::optional<std::int64_t> answerWithoutReading(std::size_t count) const;
};

}  // namespace platform
