// Reads bytes that are in memory.
//
// One thread at a time.

#pragma once

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/InputStream.h"

namespace platform {

/// An input stream over a Data. It is at its end as soon as the last byte was read.
class DataInputStream : public InputStream {
public:
    /// Selector: initWithData:
    explicit DataInputStream(Data data) : data_(std::move(data)) {}

    void open() override;
    void close() override;
    [[nodiscard]] std::int64_t read(std::span<std::byte> buffer) override;
    [[nodiscard]] bool hasBytesAvailable() const override;

private:
    Data data_;
    std::size_t position_ = 0;
};

}  // namespace platform
