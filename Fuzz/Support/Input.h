// What fuzz targets share: the input as bytes, what it may do, and what it must not.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "Platform/Foundation/Data.h"
#include "Platform/Foundation/Exception.h"

namespace fuzz {

/// The input as a block of exactly its size, so that reading beyond it is found.
inline platform::Data dataOfInput(const std::uint8_t* bytes, std::size_t size) {
    return platform::Data::copyOf({reinterpret_cast<const char*>(bytes), size});
}

/// Runs `read`, which may answer with an exception of the platform and with no other.
template <class Read>
void allowExceptions(Read read) {
    try {
        read();
    } catch (const platform::Exception&) {
        // A damaged input may end so.
    }
}

/// Ends the program, as a finding, unless `condition` holds.
inline void expect(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "expected: %s\n", what);
        std::abort();
    }
}

/// Whether the headers in `input`, wherever they stand, declare contents of more than 64 MiB in
/// sum. An archive gets the memory that it declares, so such inputs are left out.
inline bool declaresTooMuch(const platform::Data& input) {
    constexpr std::uint64_t kMost = 64ULL << 20U;
    std::uint64_t sum = 0;
    const auto add = [&](std::string_view signature, std::size_t sizeOffset) {
        const std::string_view bytes = input.view();
        for (std::size_t at = bytes.find(signature); at != std::string_view::npos;
             at = bytes.find(signature, at + 1)) {
            for (std::size_t i = 0; i < 4 && at + sizeOffset + i < bytes.size(); ++i) {
                const auto byte = static_cast<std::uint8_t>(bytes[at + sizeOffset + i]);
                sum += std::uint64_t{byte} << (8 * i);
            }
        }
    };
    add("PK\x01\x02", 24);
    add("PK\x03\x04", 22);
    return sum > kMost;
}

}  // namespace fuzz
