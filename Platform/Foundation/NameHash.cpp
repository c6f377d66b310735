#include "Platform/Foundation/NameHash.h"

#include <sys/auxv.h>

#include <algorithm>
#include <cstring>

namespace platform {
namespace {

__extension__ using Wide = unsigned __int128;

// A prime of the form 2^n - 1, which makes the remainder cheap.
constexpr std::uint64_t kPrime = (std::uint64_t{1} << 61) - 1;

std::uint64_t reduced(Wide value) {
    const auto sum = static_cast<std::uint64_t>((value & kPrime) + (value >> 61));
    return sum >= kPrime ? sum - kPrime : sum;
}

std::uint64_t product(std::uint64_t first, std::uint64_t second) {
    return reduced(Wide{first} * second);
}

// Neither 0 nor 1 would mix anything.
std::uint64_t asFactor(std::uint64_t secret) {
    return 2 + secret % (kPrime - 2);
}

}  // namespace

NameHash::NameHash() : point_(0), factor_(0) {
    std::uint64_t secret[2] = {0x9E3779B97F4A7C15, 0xC2B2AE3D27D4EB4F};
    // The kernel hands 16 random bytes to each process at its start.
    // NOLINTNEXTLINE(performance-no-int-to-ptr): it tells their address as an integer.
    if (const auto* random = reinterpret_cast<const void*>(::getauxval(AT_RANDOM))) {
        std::memcpy(secret, random, sizeof secret);
    }
    point_ = asFactor(secret[0]);
    factor_ = asFactor(secret[1]);
}

// The name is a polynomial over a prime field, 7 bytes a coefficient, evaluated at the secret
// point: two names agree there with a chance of one in 2^61 for each coefficient.
std::size_t NameHash::operator()(std::string_view name) const {
    constexpr std::size_t kChunk = 7;
    std::uint64_t hash = name.size() + 1;
    while (!name.empty()) {
        const std::size_t size = std::min(name.size(), kChunk);
        std::uint64_t chunk = 0;
        std::memcpy(&chunk, name.data(), size);
        hash = product(hash, point_);
        hash = reduced(Wide{hash} + chunk);
        name.remove_prefix(size);
    }
    return product(hash, factor_);
}

}  // namespace platform
