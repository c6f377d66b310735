// Keeps in memory what is written to it.
//
// One thread at a time.

#pragma once

#include <vector>

#include "Platform/Foundation/OutputStream.h"

namespace platform {

/// An output stream into memory; it takes everything.
class MemoryOutputStream : public OutputStream {
public:
    void open() override;
    void close() override;
    [[nodiscard]] std::int64_t write(std::span<const std::byte> bytes) override;

    /// Returns what was written so far. Free of cost for a stream that is not written afterwards.
    [[nodiscard]] std::optional<Data> dataWritten() const override;

private:
    // The bytes are in one of the two: handed out, or open for more.
    mutable Data handedOut_;
    mutable std::vector<std::byte> written_;
};

}  // namespace platform
