#include "Sources/CocoaExtensions/Zip/RawInflater.h"

#include <zlib.h>

namespace parlavox {
namespace {

constexpr int kRawWindowBits = -15;
constexpr char kZlibVersion[] = "1.2.5";

static_assert(RawInflater::kOk == Z_OK);
static_assert(RawInflater::kStreamEnd == Z_STREAM_END);
static_assert(RawInflater::kBufferError == Z_BUF_ERROR);

}  // namespace

struct RawInflater::Stream : z_stream {};

RawInflater::RawInflater() : stream_(std::make_unique<Stream>()) {
}

RawInflater::~RawInflater() {
    if (isReady_) {
        inflateEnd(stream_.get());
    }
}

int RawInflater::begin(std::span<const std::byte> compressed) {
    const int code =
        isReady_ ? inflateReset(stream_.get())
                 : inflateInit2_(stream_.get(), kRawWindowBits, kZlibVersion, sizeof(z_stream));
    isReady_ = isReady_ || code == kOk;
    // zlib's interface is not const, but it does not write to its input.
    stream_->next_in = reinterpret_cast<Bytef*>(const_cast<std::byte*>(compressed.data()));
    stream_->avail_in = static_cast<uInt>(compressed.size());
    compressed_ = compressed;
    return code;
}

bool RawInflater::inflateWhole(std::span<std::byte> output) {
    return wholeInflater_.inflate(compressed_, output);
}

int RawInflater::inflateInto(std::span<std::byte> output) {
    stream_->next_out = reinterpret_cast<Bytef*>(output.data());
    stream_->avail_out = static_cast<uInt>(output.size());
    return inflate(stream_.get(), Z_FINISH);
}

}  // namespace parlavox
