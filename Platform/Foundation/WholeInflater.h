// Inflates raw deflate data from one buffer into another, about twice as fast as a stream can.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace platform {

/// Serves any number of inputs, one after the other.
class WholeInflater {
public:
    WholeInflater();
    ~WholeInflater();
    WholeInflater(const WholeInflater&) = delete;
    WholeInflater& operator=(const WholeInflater&) = delete;

    /// Returns whether `compressed` begins with whole deflate data, without a header and a trailer,
    /// that fills `output` to the last byte. If not, `output` may hold anything.
    ///
    /// Takes a few codes that the format reserves and other readers refuse.
    [[nodiscard]] bool inflate(std::span<const std::byte> compressed, std::span<std::byte> output);

private:
    struct Decompressor;

    std::unique_ptr<Decompressor> decompressor_;
};

}  // namespace platform
