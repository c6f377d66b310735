#include "Platform/Foundation/WholeInflater.h"

#include <libdeflate.h>

#include <new>

namespace platform {

struct WholeInflater::Decompressor {
    Decompressor() {
        if (state == nullptr) {
            throw std::bad_alloc();
        }
    }
    ~Decompressor() { libdeflate_free_decompressor(state); }
    Decompressor(const Decompressor&) = delete;
    Decompressor& operator=(const Decompressor&) = delete;

    libdeflate_decompressor* const state = libdeflate_alloc_decompressor();
};

WholeInflater::WholeInflater() : decompressor_(std::make_unique<Decompressor>()) {
}

WholeInflater::~WholeInflater() = default;

bool WholeInflater::inflate(std::span<const std::byte> compressed, std::span<std::byte> output) {
    // Without a place for the size, less than the whole output is an error.
    return libdeflate_deflate_decompress(decompressor_->state, compressed.data(), compressed.size(),
                                         output.data(), output.size(),
                                         nullptr) == LIBDEFLATE_SUCCESS;
}

}  // namespace platform
