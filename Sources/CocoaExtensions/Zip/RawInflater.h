// Inflates raw deflate streams, one after the other.
//
// One thread at a time.

#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include "Platform/Foundation/WholeInflater.h"

namespace parlavox {

/// A zlib stream for data without zlib's own header and trailer. Results are zlib's codes.
class RawInflater {
public:
    static constexpr int kOk = 0;
    static constexpr int kStreamEnd = 1;
    static constexpr int kBufferError = -5;

    RawInflater();
    ~RawInflater();
    RawInflater(const RawInflater&) = delete;
    RawInflater& operator=(const RawInflater&) = delete;

    /// Begins a stream whose bytes are `compressed`. They are borrowed until the last inflateInto.
    /// Returns what zlib answers to the initialisation; kOk, or the stream must not be used.
    /// Requires: below 4 GiB.
    [[nodiscard]] int begin(std::span<const std::byte> compressed);

    /// Returns whether the input begins with a stream that fills `output` to the last byte. That is
    /// the quick way, to be tried first; it does not use up input, and when it fails `output` may
    /// hold anything.
    [[nodiscard]] bool inflateWhole(std::span<std::byte> output);

    /// Inflates what is left of the input into `output` in one call and returns kStreamEnd when all
    /// of it fitted, kBufferError when output or input ended too early, or another code for damaged
    /// input. Requires: below 4 GiB.
    [[nodiscard]] int inflateInto(std::span<std::byte> output);

private:
    struct Stream;

    std::unique_ptr<Stream> stream_;
    std::span<const std::byte> compressed_;
    platform::WholeInflater wholeInflater_;
    /// Whether zlib has made its state, which serves all streams.
    bool isReady_ = false;
};

}  // namespace parlavox
