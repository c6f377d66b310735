// How much may be built of one input, so that no input makes more of itself than its size allows.
//
// Inputs can name one part many times. What is built of them is counted in bytes of memory, and
// what is looked through in bytes of the input; the sum may reach a fixed multiple of the input's
// size, far above what any honest input needs, and is a Fault beyond it.
// One thread at a time.

#pragma once

#include <cstdint>
#include <limits>
#include <string>

#include "Platform/Foundation/Result.h"

namespace platform {

/// Counts down from a multiple of the input's size.
class BuildBudget {
public:
    /// An element of one byte becomes a value of some forty.
    static constexpr std::uint64_t kFactor = 64;

    /// So that the smallest inputs never need to count.
    static constexpr std::uint64_t kFree = 65536;

    explicit BuildBudget(std::uint64_t inputSize)
        : remaining_(inputSize > (std::numeric_limits<std::uint64_t>::max() - kFree) / kFactor
                         ? std::numeric_limits<std::uint64_t>::max()
                         : inputSize * kFactor + kFree) {}

    /// Counts `count` things of `size` bytes each; a Fault when they are too many.
    Outcome charge(std::uint64_t count, std::uint64_t size = 1) {
        std::uint64_t sum = 0;
        if (__builtin_mul_overflow(count, size, &sum) || sum > remaining_) {
            return Fault{FaultCode::Malformed,
                         "holds more than " + std::to_string(kFactor) + " times its size"};
        }
        remaining_ -= sum;
        return done();
    }

private:
    std::uint64_t remaining_;
};

}  // namespace platform
